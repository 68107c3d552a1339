// SPDX-License-Identifier: MIT

#include "views/support/ViewFixture.h"

#include <QApplication>

namespace trovell::test {

using namespace Qt::StringLiterals;

ViewFixture::ViewFixture(const AppConfiguration& configuration)
    : m_configuration(configuration),
      m_words({QString::fromUtf8(TROVELL_TEST_LANGUAGES), u":/trovell/translations"_s})
{
    m_visual.install(*qApp);
    m_visual.setAnimationReduced(true);
    m_words.setLanguage(u"en"_s);
    m_window.resize(1180, 760);
}

TrovellWorkspace& ViewFixture::addWorkspace(const QString& name)
{
    auto workspace = std::make_unique<TrovellWorkspace>(
        WorkspaceValues{.name = name, .sortOrder = context().workspaces().size()});
    TrovellWorkspace& inserted = context().insert(std::move(workspace));
    save();
    return inserted;
}

WorkspaceItem& ViewFixture::addItem(TrovellWorkspace& workspace, WorkspaceItemType type,
                                    const QString& displayName, const QString& urlString)
{
    const QString url = urlString.isEmpty() ? u"file:///nowhere/"_s + displayName : urlString;
    WorkspaceItemValues values{.typeRawValue = rawValue(type),
                               .displayName = displayName,
                               .sortOrder = workspace.itemCount(),
                               .urlString = url};
    if (type == WorkspaceItemType::application) {
        values.bundleIdentifier = displayName;
        values.applicationPath = folder.filePath(displayName + u".desktop"_s);
        values.urlString = QUrl::fromLocalFile(*values.applicationPath).toString();
    }
    WorkspaceItem& added = workspace.appendItem(std::make_unique<WorkspaceItem>(values));
    save();
    return added;
}

WindowPlacement& ViewFixture::addPlacement(TrovellWorkspace& workspace,
                                           const QString& bundleIdentifier)
{
    WindowPlacementValues values{.bundleIdentifier = bundleIdentifier,
                                 .applicationName = bundleIdentifier,
                                 .windowTitleHint = bundleIdentifier + u" window"_s,
                                 .windowRole = u"AXWindow"_s,
                                 .windowSubrole = u"AXStandardWindow"_s,
                                 .normalizedX = 0.25,
                                 .normalizedY = 0.25,
                                 .normalizedWidth = 0.5,
                                 .normalizedHeight = 0.5};
    values.displayFingerprintData = encodeFingerprint(windows->fingerprint(0));
    auto& added = workspace.appendPlacement(std::make_unique<WindowPlacement>(values));
    save();
    return added;
}

void ViewFixture::save()
{
    if (!context().save())
        qFatal("the fixture's store does not save");
}

void ViewFixture::setTrusted(bool isTrusted)
{
    windows->trusted = isTrusted;
    m_dependencies.accessibility().refresh();
}

} // namespace trovell::test
