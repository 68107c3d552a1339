// SPDX-License-Identifier: MIT
//
// What people go through, told once and played under every window manager: everything comes back as
// it was saved, and without a window manager the report says what cannot be had. Prints a table of
// what came of each story, which docs/scenarios.md keeps.

#include "support/DesktopStory.h"

#include "lab/Files.h"

#include <QtConcurrentMap>
#include <QTest>
#include <QThreadPool>

#include <cstdio>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;

namespace {

const QList<WindowManager> everyWindowManager = windowManagers + QList{WindowManager::i3};

constexpr WindowStates maximized =
    WindowState::maximizedHorizontally | WindowStates(WindowState::maximizedVertically);

constexpr QStringView outcomeMark = u"outcome: ";

/// For the table: what came of the story that is being told.
void tell(const QString& outcome)
{
    qInfo("%s%s", qPrintable(outcomeMark.toString()), qPrintable(outcome));
}

/// Empty when every window stands as it stood.
QStringList changes(const QMap<QString, DesktopWindow>& before,
                    const QMap<QString, DesktopWindow>& now)
{
    QStringList all;
    for (const auto& [title, window] : before.asKeyValueRange()) {
        const DesktopWindow found = now.value(title);
        if (found.frame != window.frame || found.states != window.states ||
            found.virtualDesktop != window.virtualDesktop)
            all.append(title);
    }
    return all;
}

} // namespace

class ScenariosTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void virtualDesktops_data() { addWindowManagerRows(everyWindowManager); }
    void virtualDesktops();
    void states_data() { addWindowManagerRows(everyWindowManager); }
    void states();
    void panels_data() { addWindowManagerRows(everyWindowManager); }
    void panels();
    void severalWindows_data() { addWindowManagerRows(everyWindowManager); }
    void severalWindows();
    void lateClass_data() { addWindowManagerRows(everyWindowManager); }
    void lateClass();
    void webApplication_data() { addWindowManagerRows(everyWindowManager); }
    void webApplication();
    void programWithoutDesktopFile_data() { addWindowManagerRows(everyWindowManager); }
    void programWithoutDesktopFile();
    void knownByItsBusName_data() { addWindowManagerRows(everyWindowManager); }
    void knownByItsBusName();
    void fileManagerThatDrawsTheDesktop_data() { addWindowManagerRows(everyWindowManager); }
    void fileManagerThatDrawsTheDesktop();
    void unpluggedDisplay_data() { addWindowManagerRows(everyWindowManager); }
    void unpluggedDisplay();
    void everythingClosed_data() { addWindowManagerRows(everyWindowManager); }
    void everythingClosed();
    void takenBack_data() { addWindowManagerRows(everyWindowManager); }
    void takenBack();
    void fiftyRounds_data() { addWindowManagerRows(everyWindowManager); }
    void fiftyRounds();
    void withoutWindowManager();

private:
    /// Whether everything stands as it was saved.
    [[nodiscard]] static bool endsWell(DesktopStory& story);
};

#define TELL_STORY                                                                                 \
    QFETCH(WindowManager, windowManager);                                                          \
    DesktopStory story(windowManager);                                                             \
    QVERIFY2(story.isReady(), qPrintable(story.desktop.error()))

bool ScenariosTest::endsWell(DesktopStory& story)
{
    // Windows that have just come up may still be on their way to where they were put.
    QStringList differences;
    if (waitUntil([&] { return (differences = story.differences()).isEmpty(); },
                  std::chrono::seconds(5))) {
        tell(u"as saved"_s);
        return true;
    }
    qWarning("%s\n%s", qPrintable(differences.join(u'\n')), qPrintable(story.report().join(u'\n')));
    return false;
}

void ScenariosTest::virtualDesktops()
{
    TELL_STORY;
    story.install(u"Plan"_s, {"--title", "Plan", "--geometry", "500,350,60,80"});
    story.install(u"Code"_s, {"--title", "Code", "--geometry", "600,420,100,120", "--window",
                              "--title", "Review", "--geometry", "420,300,1700,90"});
    story.install(u"Music"_s, {"--title", "Music", "--geometry", "380,260,2100,600"});
    for (const QString& name : {u"Plan"_s, u"Code"_s, u"Music"_s})
        story.open(name);
    QVERIFY(story.shows({u"Plan"_s, u"Code"_s, u"Review"_s, u"Music"_s}));
    story.arrange({{u"Plan"_s, {60, 80, 510, 360}, {}, {.index = 0}},
                   {u"Code"_s, {100, 120, 610, 430}, {}, {.index = 1}},
                   {u"Review"_s, {1700, 90, 430, 310}, {}, {.index = 2}},
                   {u"Music"_s, {2100, 600, 390, 280}, {}, {.isAll = true}}});
    QVERIFY(story.save());
    story.scatter();
    story.start();
    QVERIFY(endsWell(story));
    // Nobody is torn away: part of it lies on the desktop in view.
    const auto inView = [&] {
        return story.session().windowSystem().ask({}).result().currentVirtualDesktop;
    };
    // Where every display shows a desktop of its own, the one with the focus counts.
    if (windowManager != WindowManager::i3)
        QCOMPARE(inView().value_or(0), 0);
}

void ScenariosTest::states()
{
    TELL_STORY;
    for (const char* name : {"Editor", "Player", "Timer", "Tall", "Plain"})
        story.install(QString::fromLatin1(name), {"--title", name});
    for (const char* name : {"Editor", "Player", "Timer", "Tall", "Plain"})
        story.open(QString::fromLatin1(name));
    QVERIFY(story.shows({u"Editor"_s, u"Player"_s, u"Timer"_s, u"Tall"_s, u"Plain"_s}));
    story.arrange({{u"Editor"_s, {100, 90, 500, 400}, maximized},
                   {u"Player"_s, {1700, 90, 640, 400}, WindowState::fullScreen},
                   {u"Timer"_s, {300, 500, 300, 200}, WindowState::above},
                   {u"Tall"_s, {700, 60, 420, 360}, WindowState::maximizedVertically},
                   {u"Plain"_s, {900, 400, 480, 330}}});
    QVERIFY(story.save());
    story.scatter();
    story.start();
    QVERIFY(endsWell(story));
    // And once more, for what is right already.
    story.start();
    QVERIFY(endsWell(story));
}

void ScenariosTest::panels()
{
    TELL_STORY;
    story.install(u"Notes"_s, {"--title", "Notes", "--undecorated"});
    story.install(u"Panel"_s, {"--title", "Panel", "--type", "DOCK", "--geometry", "1600,70,0,0",
                               "--strut", "0,0,70,0,0,0,0,0,0,1599,0,0"});
    story.open(u"Notes"_s);
    QVERIFY(story.shows({u"Notes"_s}));
    const auto workArea = [&] {
        return story.session()
            .windowSystem()
            .ask({.displays = true})
            .result()
            .displays.first()
            .workArea;
    };
    const QRectF before = workArea();
    story.arrange({{u"Notes"_s, before.adjusted(0, 0, -800, -500)}});
    QVERIFY(story.save());
    QProcess& panel = story.open(u"Panel"_s);
    QTRY_VERIFY(workArea().top() >= before.top() + 40);
    story.scatter();
    story.start();
    const QRectF frame = story.windows().value(u"Notes"_s).frame.value_or(QRectF());
    QVERIFY2(workArea().contains(frame), qPrintable(story.differences().join(u'\n')));
    // Without the panel it stands where it was.
    VirtualDesktop::kill(panel);
    QTRY_COMPARE(workArea(), before);
    story.start();
    QVERIFY(endsWell(story));
}

void ScenariosTest::severalWindows()
{
    TELL_STORY;
    story.install(u"Shell"_s, {"--title", "Shell", "--geometry", "500,350,60,80"});
    QProcess* const shells[] = {&story.open(u"Shell"_s), &story.open(u"Shell"_s),
                                &story.open(u"Shell"_s)};
    QVERIFY(story.desktop.inspector().waitForWindowCount(3));
    const auto frames = [&] {
        QList<QRect> all;
        for (const InspectedWindow& window : story.desktop.inspector().windows())
            all.append(window.frame);
        std::ranges::sort(all, {}, [](const QRect& each) { return each.x(); });
        return all;
    };
    const QList<InspectedWindow> windows = story.desktop.inspector().waitForRest();
    for (int index = 0; index < 3; ++index)
        story.desktop.inspector().moveWindow(windows.at(index).id,
                                             QRect(100 + 500 * index, 100, 420, 300 + 40 * index));
    story.desktop.inspector().waitForRest();
    QVERIFY(story.save());
    const QList<QRect> saved = frames();
    VirtualDesktop::kill(*shells[0]);
    VirtualDesktop::kill(*shells[2]);
    QTRY_COMPARE(story.desktop.inspector().windows().size(), 1);
    story.start();
    QVERIFY2(story.report().contains(u"Shell: opened 2 windows opened"_s),
             qPrintable(story.report().join(u'\n')));
    QTRY_COMPARE(frames(), saved);
    tell(u"as saved"_s);
}

void ScenariosTest::lateClass()
{
    TELL_STORY;
    story.install(u"Office"_s, {"--title", "Office", "--class", "Starting", "--late-class",
                                "Office", "--geometry", "500,350,160,180"});
    QProcess& first = story.open(u"Office"_s);
    QVERIFY(story.shows({u"Office"_s}));
    QTRY_COMPARE(story.desktop.inspector().windowTitled(u"Office")->wmClass, u"Office"_s);
    story.arrange({{u"Office"_s, {700, 300, 610, 430}}});
    QVERIFY(story.save());
    VirtualDesktop::kill(first);
    QVERIFY(story.shows({}));
    story.start();
    QVERIFY(endsWell(story));
}

void ScenariosTest::webApplication()
{
    TELL_STORY;
    story.install(u"Browser"_s, {"--title", "News - Browser", "--geometry", "500,350,160,180"});
    story.install(u"Mail"_s,
                  {"--class", "Browser", "--instance", "web_mail", "--title", "Inbox - Browser",
                   "--geometry", "450,330,260,280"},
                  "web_mail");
    QProcess& browser = story.open(u"Browser"_s);
    QProcess& mail = story.open(u"Mail"_s);
    QVERIFY(story.shows({u"News - Browser"_s, u"Inbox - Browser"_s}));
    story.arrange(
        {{u"News - Browser"_s, {60, 80, 710, 560}}, {u"Inbox - Browser"_s, {1700, 190, 530, 410}}});
    QVERIFY(story.save());
    VirtualDesktop::kill(browser);
    VirtualDesktop::kill(mail);
    QVERIFY(story.shows({}));
    story.start();
    for (const QString& line : {u"Browser: launched"_s, u"Mail: launched"_s})
        QVERIFY2(story.report().contains(line), qPrintable(story.report().join(u'\n')));
    QVERIFY(endsWell(story));
}

void ScenariosTest::programWithoutDesktopFile()
{
    TELL_STORY;
    // What such a file does when it is run.
    const QByteArray program(scriptedClientPath());
    const QString image = writeProgram(
        story.desktop.homePath() + u"/Drawing.AppImage"_s,
        "#!/bin/sh\nexport APPIMAGE=\"$0\" APPDIR=\"$(dirname '" + program + "')\"\nexec '" +
            program + "' --class Drawing --title Drawing --geometry 500,350,160,180\n");
    QProcess& first = story.desktop.start(image.toUtf8().constData());
    QVERIFY(story.shows({u"Drawing"_s}));
    story.arrange({{u"Drawing"_s, {700, 300, 610, 430}}});
    QVERIFY(story.save());
    VirtualDesktop::kill(first);
    QVERIFY(story.shows({}));
    story.start();
    QVERIFY(endsWell(story));
}

void ScenariosTest::knownByItsBusName()
{
    TELL_STORY;
    const auto title = [&] { return story.windows().keys().value(0); };
    QProcess& first = story.desktop.start("gnome-text-editor", {"--standalone"});
    QVERIFY(story.desktop.inspector().waitForWindowCount(1));
    QTRY_VERIFY(!title().isEmpty());
    story.arrange({{title(), {700, 200, 640, 520}}});
    QVERIFY(story.save());
    VirtualDesktop::kill(first);
    QVERIFY(story.shows({}));
    story.desktop.start("gnome-text-editor", {"--gapplication-service"});
    const QByteArrayList question{"--session",
                                  "--print-reply",
                                  "--dest=org.freedesktop.DBus",
                                  "/",
                                  "org.freedesktop.DBus.NameHasOwner",
                                  "string:org.gnome.TextEditor"};
    QTRY_VERIFY(story.desktop.run("dbus-send", question).contains("boolean true"));
    story.start();
    QVERIFY(endsWell(story));
}

void ScenariosTest::fileManagerThatDrawsTheDesktop()
{
    TELL_STORY;
    story.install(u"Files"_s, {"--title", "Home", "--geometry", "500,350,160,180"});
    story.desktop.startClient({"--class", "Files", "--title", "Desktop", "--type", "DESKTOP",
                               "--geometry", "1600,1024,0,0"});
    QProcess& folder = story.open(u"Files"_s);
    QVERIFY(story.shows({u"Home"_s}));
    story.arrange({{u"Home"_s, {700, 300, 610, 430}}});
    QVERIFY(story.save());
    VirtualDesktop::kill(folder);
    QVERIFY(story.shows({}));
    story.start();
    QVERIFY2(story.report().contains(u"Files: launched"_s), qPrintable(story.report().join(u'\n')));
    QVERIFY(endsWell(story));
}

void ScenariosTest::unpluggedDisplay()
{
    TELL_STORY;
    story.install(u"Left"_s, {"--title", "Left", "--geometry", "500,350,60,80"});
    story.install(u"Right"_s, {"--title", "Right", "--geometry", "420,300,1700,90"});
    story.open(u"Left"_s);
    story.open(u"Right"_s);
    QVERIFY(story.shows({u"Left"_s, u"Right"_s}));
    story.arrange({{u"Left"_s, {60, 80, 510, 360}}, {u"Right"_s, {1900, 390, 530, 410}}});
    QVERIFY(story.save());
    story.desktop.unplugDisplay(1);
    const auto displayCount = [&] {
        return story.session().windowSystem().ask({.displays = true}).result().displays.size();
    };
    QTRY_COMPARE(displayCount(), 1);
    story.start();
    const QRectF left(story.desktop.display(0));
    const auto isOnLeft = [&](const DesktopWindow& window) {
        return left.contains(window.frame.value_or(QRectF()));
    };
    // A window manager that follows the server late moves them once more.
    const bool areOnLeft = waitUntil([&] { return std::ranges::all_of(story.windows(), isOnLeft); },
                                     std::chrono::seconds(5));
    QVERIFY2(areOnLeft, qPrintable((story.differences() + story.report()).join(u'\n')));
    story.desktop.plugDisplay(1, QSize(1280, 1024), QPoint(1600, 0));
    QTRY_COMPARE(displayCount(), 2);
    story.start();
    QVERIFY(endsWell(story));
}

void ScenariosTest::everythingClosed()
{
    TELL_STORY;
    // Titles are others after a start, and one program is late.
    story.install(u"Browser"_s, {"--title", "New Tab", "--geometry", "500,350,160,180", "--window",
                                 "--title", "Restored", "--geometry", "520,360,180,200"});
    story.install(u"Mail"_s,
                  {"--class", "Browser", "--instance", "web_mail", "--title", "Mail", "--geometry",
                   "450,330,260,280"},
                  "web_mail");
    story.install(u"Slow"_s, {"--title", "Slow", "--map-after", "1500"});
    story.install(u"Cells"_s, {"--title", "Cells", "--geometry", "484,316,700,100", "--increments",
                               "6,13", "--base", "4,4"});
    story.install(u"Shadow"_s, {"--title", "Shadow", "--geometry", "552,452,100,500",
                                "--gtk-frame-extents", "26,26,23,29", "--undecorated"});
    story.desktop.startClient(
        {"--class", "Browser", "--title", "News", "--window", "--title", "Shop"});
    for (const QString& name : {u"Mail"_s, u"Slow"_s, u"Cells"_s, u"Shadow"_s})
        story.open(name);
    story.desktop.start("xterm", {"-T", "Log"});
    story.desktop.start("xterm", {"-T", "Build"});
    story.desktop.start("mousepad", {"--disable-server"});
    story.desktop.start("featherpad", {"--standalone"});
    story.desktop.start("gnome-text-editor", {"--standalone"});
    story.desktop.start("gnome-calculator", {});
    DesktopInspector& inspector = story.desktop.inspector();
    QVERIFY(inspector.waitForWindowCount(12));
    inspector.waitForRest();
    QList<DesktopStory::Wish> wishes;
    for (const QString& title : story.windows().keys()) {
        const int step = int(wishes.size());
        wishes.append(
            {title, QRectF(step % 2 * 1600 + 40 + 50 * step, 40 + 20 * step, 560 + 8 * step, 620)});
    }
    story.arrange(wishes);
    QVERIFY(story.save());
    const auto corners = [&] {
        QList<QPoint> all;
        for (const InspectedWindow& window : inspector.windows())
            all.append(window.frame.topLeft());
        std::ranges::sort(all, {},
                          [](const QPoint& each) { return std::pair(each.x(), each.y()); });
        return all;
    };
    const QList<QPoint> saved = corners();
    QCOMPARE(saved.size(), 12);
    for (const InspectedWindow& window : inspector.windows())
        inspector.close(window.id);
    QTRY_COMPARE(inspector.windows().size(), 0);
    story.start(30);
    const auto lost = [](const QString& line) { return line.contains(u": timedOut"); };
    QVERIFY2(!std::ranges::any_of(story.report(), lost), qPrintable(story.report().join(u'\n')));
    const bool isInPlace = waitUntil([&] { return corners() == saved; }, std::chrono::seconds(5));
    for (const InspectedWindow& window : isInPlace ? QList<InspectedWindow>() : inspector.windows())
        qWarning() << window.title << window.frame;
    QCOMPARE(corners(), saved);
    tell(u"12 of 12"_s);
}

void ScenariosTest::takenBack()
{
    TELL_STORY;
    for (const char* name : {"Editor", "Chat"})
        story.install(QString::fromLatin1(name), {"--title", name});
    story.open(u"Editor"_s);
    story.open(u"Chat"_s);
    QVERIFY(story.shows({u"Editor"_s, u"Chat"_s}));
    story.arrange({{u"Editor"_s, {60, 80, 510, 360}}, {u"Chat"_s, {1900, 390, 530, 410}}});
    QVERIFY(story.save());
    story.arrange({{u"Editor"_s, {200, 180, 610, 460}, maximized},
                   {u"Chat"_s, {900, 300, 430, 310}, {}, {.index = 1}}});
    const auto before = story.windows();
    story.start();
    QVERIFY(endsWell(story));
    WorkspaceLauncher& launcher = story.session().dependencies().launcher();
    QVERIFY(launcher.canPutWindowsBack());
    QCoro::waitFor(launcher.putWindowsBack());
    QCOMPARE(changes(before, story.windows()), QStringList());
}

void ScenariosTest::fiftyRounds()
{
    TELL_STORY;
    story.install(u"Player"_s, {"--title", "Player"});
    story.install(u"Editor"_s, {"--title", "Editor"});
    story.install(u"Shadow"_s, {"--title", "Shadow", "--geometry", "552,452,100,500",
                                "--gtk-frame-extents", "26,26,23,29", "--undecorated"});
    for (const QString& name : {u"Player"_s, u"Editor"_s, u"Shadow"_s})
        story.open(name);
    story.desktop.start("xterm", {"-T", "Shell", "-geometry", "83x27+900+520"});
    story.desktop.start("featherpad", {"--standalone"});
    QVERIFY(story.desktop.inspector().waitForWindowCount(5));
    story.desktop.inspector().waitForRest();
    story.arrange({{u"Player"_s, {1700, 90, 640, 400}, maximized},
                   {u"Editor"_s, {100, 90, 500, 400}, {}, {.index = 1}},
                   {u"Shadow"_s, {1900, 300, 552, 452}, {}, {.isAll = true}},
                   {u"Shell"_s, {700, 300, 509, 400}, WindowState::above, {.index = 1}}});
    const auto before = story.windows();
    for (int round = 0; round < 50; ++round) {
        QVERIFY(story.save());
        // Mostly nothing has to move; now and then everything has to.
        if (round % 10 == 9)
            story.scatter();
        story.start();
        QVERIFY(endsWell(story));
        QVERIFY2(changes(before, story.windows()).isEmpty(), qPrintable(QString::number(round)));
    }
}

void ScenariosTest::withoutWindowManager()
{
    DesktopStory story(WindowManager::openbox);
    QVERIFY2(story.isReady(), qPrintable(story.desktop.error()));
    story.install(u"Notes"_s, {"--title", "Notes"});
    QProcess& notes = story.open(u"Notes"_s);
    QVERIFY(story.shows({u"Notes"_s}));
    QVERIFY(story.save());
    VirtualDesktop::kill(notes);
    story.desktop.stopWindowManager();
    story.start();
    const QStringList told{
        u"Notes: launched"_s,
        u"Window layout: skippedNoPermission Grant Accessibility access to restore saved windows."_s};
    QCOMPARE(story.report(), told);
    QVERIFY(!story.save());
    tell(u"items only"_s);
}

namespace {

struct Row {
    QString story;
    QString windowManager;
    QString outcome = {};
    bool hasPassed = false;
};

QList<Row> allRows(const QString& program)
{
    QProcess list;
    list.start(program, {u"-datatags"_s});
    list.waitForFinished();
    QList<Row> rows;
    for (const QByteArray& line : list.readAllStandardOutput().split('\n')) {
        const QStringList words = QString::fromUtf8(line).split(u' ');
        if (words.size() > 1)
            rows.append({words.at(1), words.value(2, u"none"_s)});
    }
    return rows;
}

/// In a process of its own: the libraries below the product know one home and one bus.
void play(Row& row, const QString& program)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    const bool hasTag = row.windowManager != u"none";
    process.start(program, {hasTag ? row.story + u':' + row.windowManager : row.story});
    process.waitForFinished(-1);
    const QString output = QString::fromUtf8(process.readAll());
    row.outcome = output.section(outcomeMark.toString(), 1).section(u'\n', 0, 0);
    row.hasPassed = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (!row.hasPassed)
        std::fputs(qPrintable(output), stdout);
}

void printTable(const QList<Row>& rows)
{
    QStringList stories;
    QHash<std::pair<QString, QString>, QString> outcomes;
    for (const Row& row : rows) {
        if (!stories.contains(row.story))
            stories.append(row.story);
        outcomes.insert({row.story, row.windowManager},
                        row.hasPassed ? row.outcome : u"**failed**"_s);
    }
    QStringList names;
    for (const WindowManager windowManager : everyWindowManager)
        names.append(QString::fromLatin1(windowManagerName(windowManager)));
    names.append(u"none"_s);
    QString table = u"\n| | "_s + names.join(u" | "_s) + u" |\n|---"_s +
                    u"|---"_s.repeated(names.size()) + u"|\n"_s;
    for (const QString& story : std::as_const(stories)) {
        table += u"| "_s + story + u" |"_s;
        for (const QString& name : std::as_const(names))
            table += u' ' + outcomes.value({story, name}, u"-"_s) + u" |"_s;
        table += u'\n';
    }
    std::puts(qPrintable(table));
}

int playAll(const QString& program)
{
    QList<Row> rows = allRows(program);
    // Two at a time: each waits most of its time.
    QThreadPool::globalInstance()->setMaxThreadCount(2);
    QtConcurrent::blockingMap(rows, [&](Row& row) { play(row, program); });
    printTable(rows);
    const auto failed = std::ranges::count(rows, false, &Row::hasPassed);
    std::printf("%d of %d passed\n", int(rows.size() - failed), int(rows.size()));
    return rows.isEmpty() || failed > 0 ? 1 : 0;
}

} // namespace

/// Without arguments all rows, each by this program again, as arguments name it.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 1)
        return playAll(QCoreApplication::applicationFilePath());
    ScenariosTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ScenariosTest.moc"
