// SPDX-License-Identifier: MIT

#include "pictures/SampleDesktop.h"

#include "model/WorkspaceChoices.h"
#include "views/support/ViewFixture.h"

#include <QPainter>

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

struct SampleApplication {
    QString bundleIdentifier;
    QString name;
    QString symbolName;
    QColor color;
};

const SampleApplication& sampleOf(Application application)
{
    static const SampleApplication samples[] = {
        {u"org.gnome.TextEditor"_s, u"Text Editor"_s, u"doc.text"_s, {0xED, 0xAE, 0x3F}},
        {u"firefox"_s, u"Firefox"_s, u"network"_s, {0xE4, 0x57, 0x32}},
        {u"org.gnome.Nautilus"_s, u"Files"_s, u"folder"_s, {0x3D, 0x7D, 0xD8}},
        {u"org.gnome.Evince"_s, u"Document Viewer"_s, u"doc"_s, {0x7A, 0x4C, 0xC4}},
        {u"org.gnome.Music"_s, u"Music"_s, u"music.note"_s, {0x2F, 0x9E, 0x74}},
        {u"org.gnome.Terminal"_s, u"Terminal"_s, u"terminal"_s, {0x3B, 0x3F, 0x4A}}};
    return samples[int(application)];
}

/// Stands in for what an icon theme would give.
void drawIcon(const VisualStyle& visual, const SampleApplication& application, const QString& path)
{
    QImage icon(256, 256, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(application.color);
    painter.drawRoundedRect(QRectF(8, 8, 240, 240), 58, 58);
    visual.paintSymbol(painter, {48, 48, 160, 160}, application.symbolName, Qt::white);
    painter.end();
    if (!icon.save(path))
        qFatal("no icon can be written");
}

void createFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly))
        qFatal("no file can be written");
}

} // namespace

SampleDesktop::SampleDesktop(test::ViewFixture& fixture) : m_fixture(fixture)
{
    fixture.windows->displays = {
        {u"27-inch Display"_s, {0, 0, 2560, 1440}, {0, 0, 2560, 1440}, 1.0, true},
        {u"Built-in Display"_s, {2560, 0, 1440, 900}, {2560, 0, 1440, 900}, 1.0, false}};
    for (int i = 0; i <= int(Application::terminal); ++i) {
        const SampleApplication& sample = sampleOf(Application(i));
        const QString path = fixture.folder.filePath(sample.bundleIdentifier);
        drawIcon(fixture.environment().visual, sample, path + u".png"_s);
        createFile(path + u".desktop"_s);
        fixture.resources->addApplication({sample.bundleIdentifier, sample.name, path + u".png"_s},
                                          QUrl::fromLocalFile(path + u".desktop"_s));
    }
}

void SampleDesktop::storeWorkspaces(bool isHomeNetworkEmpty)
{
    struct Row {
        QString name;
        QString symbolName;
        int otherItems;
    };
    const Row rows[] = {{u"Writing"_s, u"book"_s, 0},
                        {u"Client Review"_s, u"briefcase"_s, 0},
                        {u"Music Practice"_s, u"music.note"_s, 0},
                        {u"Site Build"_s, u"terminal"_s, 7},
                        {u"Field Sketches"_s, u"paintbrush"_s, 3},
                        {u"Home Network"_s, u"network"_s, isHomeNetworkEmpty ? 0 : 4},
                        {u"Sunday Admin"_s, u"rectangle.3.group"_s, 1}};
    for (const Row& row : rows) {
        TrovellWorkspace& workspace = m_fixture.addWorkspace(row.name);
        workspace.setSymbolName(row.symbolName);
        for (int i = 0; i < row.otherItems; ++i)
            addLink(workspace, u"page%1.example"_s.arg(i));
    }
    const QList<TrovellWorkspace*> workspaces = m_fixture.context().workspaces();
    for (int i = 0; i < 4; ++i)
        workspaces[i]->setShortcut(shortcuts().at(i + 1));
    fillWriting(*workspaces[int(Workspace::writing)]);
    fillClientReview(*workspaces[int(Workspace::clientReview)]);
    fillMusicPractice(*workspaces[int(Workspace::musicPractice)]);
    if (!m_fixture.context().save())
        qFatal("the sample data cannot be saved");
}

void SampleDesktop::fillWriting(TrovellWorkspace& workspace)
{
    addApplication(workspace, Application::textEditor);
    addApplication(workspace, Application::firefox);
    addFolder(workspace, u"Manuscript"_s);
    addFile(workspace, u"Chapter 4 Outline.odt"_s);
    m_fixture.addItem(workspace, WorkspaceItemType::file, u"Style Guide.pdf"_s,
                      u"file:///home/robin/Documents/Style%20Guide.pdf"_s);
    addLink(workspace, u"thesaurus.example"_s);
    workspace.sortedItems().last()->setIsEnabled(false);
    addPlacement(workspace, Application::textEditor, u"Chapter 4 – Draft.md"_s, 0,
                 {0.02, 0.04, 0.5, 0.92}, {.desktop = u"Writing"_s, .states = u"above"_s});
    addPlacement(workspace, Application::firefox, u"Reference – Firefox"_s, 0,
                 {0.535, 0.04, 0.445, 0.92}, {.desktop = u"Research"_s});
    addPlacement(workspace, Application::files, u"Manuscript"_s, 1, {0.03, 0.04, 0.46, 0.46}, {});
    addPlacement(workspace, Application::textEditor, u"Notes.md"_s, 1, {0.03, 0.54, 0.46, 0.4},
                 {.desktop = u"Writing"_s});
    addPlacement(workspace, Application::documentViewer, u"Chapter 4 Outline"_s, 1,
                 {0.515, 0.04, 0.455, 0.9},
                 {.desktop = u"Research"_s, .states = u"maximizedVertically"_s});
}

void SampleDesktop::fillClientReview(TrovellWorkspace& workspace)
{
    addApplication(workspace, Application::firefox);
    addApplication(workspace, Application::documentViewer);
    addFolder(workspace, u"Client Review – Round 2"_s);
    addFile(workspace, u"Feedback Notes.md"_s);
    addLink(workspace, u"review.example.com"_s);
    addPlacement(workspace, Application::documentViewer, u"Chapter 4 Outline"_s, 0,
                 {0.02, 0.04, 0.46, 0.92}, {});
    addPlacement(workspace, Application::firefox, u"Thesaurus – Firefox"_s, 0,
                 {0.5, 0.04, 0.48, 0.92}, {});
    addPlacement(workspace, Application::textEditor, u"Notes.md"_s, 1, {0.04, 0.08, 0.56, 0.84},
                 {});
    addPlacement(workspace, Application::files, u"Manuscript"_s, 1, {0.64, 0.08, 0.33, 0.62}, {});
}

void SampleDesktop::fillMusicPractice(TrovellWorkspace& workspace)
{
    addApplication(workspace, Application::music);
    addApplication(workspace, Application::documentViewer);
    addFolder(workspace, u"Scores"_s);
    addLink(workspace, u"metronome.example"_s);
    addPlacement(workspace, Application::documentViewer, u"Etude"_s, 1, {0.02, 0.03, 0.62, 0.93},
                 {.states = u"maximizedHorizontally maximizedVertically"_s});
    addPlacement(workspace, Application::music, u"Music"_s, 1, {0.66, 0.03, 0.32, 0.62}, {});
}

void SampleDesktop::addApplication(TrovellWorkspace& workspace, Application application)
{
    const SampleApplication& sample = sampleOf(application);
    WorkspaceItem& item =
        m_fixture.addItem(workspace, WorkspaceItemType::application, sample.bundleIdentifier);
    item.setDisplayName(sample.name);
}

void SampleDesktop::addFile(TrovellWorkspace& workspace, const QString& name)
{
    const QString path = m_fixture.folder.filePath(name);
    createFile(path);
    m_fixture.addItem(workspace, WorkspaceItemType::file, name,
                      QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
}

void SampleDesktop::addFolder(TrovellWorkspace& workspace, const QString& name)
{
    const QString path = m_fixture.folder.filePath(name);
    QDir().mkpath(path);
    m_fixture.addItem(workspace, WorkspaceItemType::folder, name,
                      QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
}

void SampleDesktop::addLink(TrovellWorkspace& workspace, const QString& host)
{
    m_fixture.addItem(workspace, WorkspaceItemType::webLink, host, u"https://"_s + host);
}

void SampleDesktop::addPlacement(TrovellWorkspace& workspace, Application application,
                                 const QString& title, int display, const QRectF& place,
                                 const Remembered& remembered)
{
    const SampleApplication& sample = sampleOf(application);
    // Saved positions count from the bottom.
    workspace.appendPlacement(std::make_unique<WindowPlacement>(WindowPlacementValues{
        .bundleIdentifier = sample.bundleIdentifier,
        .applicationName = sample.name,
        .windowTitleHint = title,
        .windowRole = u"AXWindow"_s,
        .windowSubrole = u"AXStandardWindow"_s,
        .windowIndexHint = workspace.placementCount(),
        .normalizedX = place.x(),
        .normalizedY = 1 - place.y() - place.height(),
        .normalizedWidth = place.width(),
        .normalizedHeight = place.height(),
        .displayFingerprintData = encodeFingerprint(m_fixture.windows->fingerprint(display)),
        .virtualDesktopIndex = remembered.desktop ? std::optional(1) : std::nullopt,
        .virtualDesktopName = remembered.desktop,
        .windowStates = remembered.states,
    }));
    m_fixture.save();
}

void SampleDesktop::openWindow(Application application, const QString& title, int display,
                               const QRectF& place)
{
    run(application);
    const QRectF& screen = m_fixture.windows->displays.at(display).frame;
    const QRectF frame(screen.x() + place.x() * screen.width(), place.y() * screen.height(),
                       place.width() * screen.width(), place.height() * screen.height());
    m_fixture.windows->addWindow(sampleOf(application).bundleIdentifier,
                                 {.title = title, .frame = frame});
}

void SampleDesktop::run(Application application)
{
    const SampleApplication& sample = sampleOf(application);
    if (m_fixture.windows->isRunning(sample.bundleIdentifier))
        return;
    m_fixture.windows->addApplication(sample.bundleIdentifier, sample.name).bundleURL =
        QUrl::fromLocalFile(m_fixture.folder.filePath(sample.bundleIdentifier + u".desktop"_s))
            .toString();
}

void SampleDesktop::openWritingWindows()
{
    openWindow(Application::textEditor, u"Chapter 4 – Draft.md"_s, 0, {0.02, 0.04, 0.5, 0.92});
    openWindow(Application::textEditor, u"Notes.md"_s, 1, {0.03, 0.54, 0.46, 0.4});
    openWindow(Application::firefox, u"Thesaurus – Firefox"_s, 0, {0.535, 0.04, 0.445, 0.92});
    openWindow(Application::firefox, {}, 1, {0.2, 0.2, 0.35, 0.35});
    openWindow(Application::files, u"Manuscript"_s, 1, {0.03, 0.04, 0.46, 0.46});
}

} // namespace trovell::screenshots
