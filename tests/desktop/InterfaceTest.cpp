// SPDX-License-Identifier: MIT
//
// The program as people use it, on a real desktop with real applications: from the first start to a
// desktop brought back, and what they do after that.

#include "lab/Files.h"
#include "support/Patience.h"
#include "support/RunningTrovell.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

namespace {

const QString button = u"push button"_s;
const QString menuButton = u"button menu"_s;
const QString field = u"text"_s;
const QString menuItem = u"menu item"_s;
const QString checkBox = u"check box"_s;
const QString listItem = u"list item"_s;
const QString label = u"label"_s;

const QJsonObject onboarded{{u"onboarding.completed"_s, true}};

} // namespace

class InterfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void firstRunToRestoredWorkspace();
    void updatesALayoutWhileAnApplicationIsClosed();
    void savesAVariant();
    void addsEveryKindOfItem();
    void startsAndQuitsFromTheTray();
    void endsWithItsLastWindowIfToldSo();
    void changesLanguageAndAppearanceLive();
    void isOneInstance();
    void answersGlobalKeysWithTheWindowClosed();

private:
    void openTerminals();
    void captureAs(const QString& name);
    /// Programs on the desktop, and the workspace "Work" of them.
    void openAndCapture();
    [[nodiscard]] bool startOnboarded();
    void closeMainWindow();
    void chooseFile(const QString& title, const QString& path);
    [[nodiscard]] QRect frameOf(const QString& title) const;

    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<RunningTrovell> m_trovell;
};

void InterfaceTest::init()
{
    m_desktop = std::make_unique<VirtualDesktop>(WindowManager::openbox);
    QVERIFY2(m_desktop->isReady(), qPrintable(m_desktop->error()));
    m_trovell = std::make_unique<RunningTrovell>(*m_desktop);
}

void InterfaceTest::cleanup()
{
    if (QTest::currentTestFailed())
        qWarning("%s", qPrintable(m_trovell->picture()));
    m_trovell.reset();
    m_desktop.reset();
}

void InterfaceTest::openTerminals()
{
    m_desktop->start("xterm", {"-T", "Log", "-geometry", "80x20+60+40"});
    m_desktop->start("mousepad", {"--disable-server"});
    DesktopInspector& inspector = m_desktop->inspector();
    QVERIFY(inspector.waitForWindowCount(2));
    const auto notes = inspector.waitForWindowOfClass(u"Mousepad");
    inspector.moveWindow(notes.id, QRect(1700, 300, 640, 420));
    QVERIFY(waitUntil([&] { return inspector.window(notes.id)->client.width() == 640; }));
    inspector.waitForRest();
}

QRect InterfaceTest::frameOf(const QString& title) const
{
    const auto window = m_desktop->inspector().windowTitled(title);
    return window ? window->frame : QRect();
}

/// With the capture sheet that the add menu opens.
void InterfaceTest::captureAs(const QString& name)
{
    QVERIFY(m_trovell->click(menuButton, u"Add Workspace"_s));
    QVERIFY(m_trovell->click(menuItem, u"Capture Current Workspace"_s));
    QVERIFY(m_trovell->click(field, u"Workspace name"_s));
    m_trovell->type(name);
    QVERIFY(m_trovell->click(button, u"Save Workspace"_s));
    QVERIFY(m_trovell->hides(button, u"Save Workspace"_s));
}

bool InterfaceTest::startOnboarded()
{
    m_trovell->setPreferences(onboarded);
    return m_trovell->start();
}

void InterfaceTest::openAndCapture()
{
    openTerminals();
    QVERIFY(startOnboarded());
    captureAs(u"Work"_s);
}

void InterfaceTest::closeMainWindow()
{
    DesktopInspector& inspector = m_desktop->inspector();
    inspector.close(inspector.waitForWindow(u"Trovell").id);
    QVERIFY(waitUntil([&] { return !inspector.windowTitled(u"Trovell"); }));
}

void InterfaceTest::firstRunToRestoredWorkspace()
{
    openTerminals();
    const auto saved = m_desktop->inspector().framesByTitle();
    QVERIFY(m_trovell->start());

    QVERIFY(m_trovell->shows(label, u"Welcome to Trovell"_s));
    m_trovell->press("Return"); // windows can be controlled here, so the second step is left out
    QVERIFY(m_trovell->click(button, u"Create Workspace"_s));
    QVERIFY(m_trovell->hides(button, u"Create Workspace"_s));
    QVERIFY(m_trovell->find(listItem, u"My Workspace"_s));

    captureAs(u"Evening"_s);
    QVERIFY(m_trovell->shows(label, u"Evening captured."_s));

    DesktopInspector& inspector = m_desktop->inspector();
    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(30, 500, 300, 200));
    inspector.close(inspector.waitForWindowOfClass(u"Mousepad").id);
    QVERIFY(waitUntil([&] { return inspector.windows().size() == 2; })); // the log and our own
    QVERIFY(m_trovell->click(button, u"Start Workspace"_s));
    QVERIFY(m_trovell->shows(label, u"Workspace ready"_s));
    for (auto window = saved.cbegin(); window != saved.cend(); ++window)
        QTRY_COMPARE(frameOf(window.key()), window.value());
}

void InterfaceTest::updatesALayoutWhileAnApplicationIsClosed()
{
    openAndCapture();

    DesktopInspector& inspector = m_desktop->inspector();
    const QRect notes = inspector.waitForWindowOfClass(u"Mousepad").frame;
    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(1000, 500, 500, 300));
    inspector.close(inspector.waitForWindowOfClass(u"Mousepad").id);
    const QRect log = inspector.waitForRest(inspector.windowTitled(u"Log")->id).frame;

    QVERIFY(m_trovell->click(button, u"Save Layout"_s));
    QVERIFY(m_trovell->shows(label, u"Not Currently Detected"_s));
    m_trovell->press("Return");
    QVERIFY(m_trovell->shows(label, u"Work layout updated."_s));

    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(30, 30, 300, 200));
    QVERIFY(m_trovell->click(button, u"Start Workspace"_s));
    QVERIFY(m_trovell->shows(label, u"Workspace ready"_s));
    QTRY_COMPARE(frameOf(u"Log"_s), log);
    QTRY_COMPARE(inspector.waitForWindowOfClass(u"Mousepad").frame, notes);
}

void InterfaceTest::savesAVariant()
{
    openAndCapture();
    DesktopInspector& inspector = m_desktop->inspector();
    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(1000, 500, 500, 300));
    const QRect moved = inspector.waitForRest(inspector.windowTitled(u"Log")->id).frame;
    QVERIFY(m_trovell->rightClick(listItem, u"Work"_s));
    QVERIFY(m_trovell->click(menuItem, u"Save as New Workspace"_s));
    QVERIFY(m_trovell->click(button, u"Save Workspace"_s));
    QVERIFY(m_trovell->shows(label, u"Work Variant saved as a new workspace."_s));

    // Each of the two brings back its own layout.
    const auto frameAfterStarting = [&](const QString& workspace) {
        (void)m_trovell->doubleClick(listItem, workspace);
        (void)m_trovell->shows(label, u"Workspace ready"_s);
        return inspector.waitForRest(inspector.windowTitled(u"Log")->id).frame;
    };
    QVERIFY(frameAfterStarting(u"Work"_s) != moved);
    QCOMPARE(frameAfterStarting(u"Work Variant"_s), moved);
}

/// In the dialog for files: its field for names has the focus. A first Return may only take what
/// the field completes.
void InterfaceTest::chooseFile(const QString& title, const QString& path)
{
    QVERIFY(m_trovell->shows(u"dialog"_s, title));
    m_trovell->type(path);
    for (int attempt = 0; attempt < 3 && m_trovell->showsNow(u"dialog"_s, title); ++attempt) {
        m_trovell->press("Return");
        QTest::qWait(400);
    }
    QVERIFY(m_trovell->hides(u"dialog"_s, title));
}

void InterfaceTest::addsEveryKindOfItem()
{
    const QString folder = m_desktop->homePath() + u"/Receipts"_s;
    QDir().mkpath(folder);
    const QString file = writeFile(m_desktop->homePath() + u"/list.txt"_s, {});
    QVERIFY(startOnboarded());

    QVERIFY(m_trovell->click(button, u"New Empty Workspace"_s));
    QVERIFY(m_trovell->click(field, u"Workspace name"_s));
    m_trovell->type(u"Errands"_s);
    const auto add = [this](const QString& kind) {
        return m_trovell->click(menuButton, u"Add Item"_s) && m_trovell->click(menuItem, kind);
    };
    QVERIFY(add(u"Folder…"_s));
    chooseFile(u"Choose Folders"_s, folder);
    QVERIFY(m_trovell->shows(button, u"Remove Receipts"_s));
    QVERIFY(add(u"File…"_s));
    chooseFile(u"Choose Files"_s, file);
    QVERIFY(m_trovell->shows(button, u"Remove list.txt"_s));
    QVERIFY(add(u"Web Link…"_s));
    QVERIFY(m_trovell->shows(label, u"Add Web Link"_s));
    m_trovell->type(u"example.com/shop"_s);
    m_trovell->press("Return");
    QVERIFY(m_trovell->shows(button, u"Remove example.com"_s));
    QVERIFY(add(u"Application…"_s));
    QVERIFY(m_trovell->shows(listItem, u"Mousepad"_s));
    m_trovell->type(u"mousep"_s);
    m_trovell->press("Return");
    QVERIFY(m_trovell->shows(button, u"Remove Mousepad"_s));
    QVERIFY(m_trovell->click(button, u"Save"_s));
    QVERIFY(m_trovell->shows(label, u"Errands created."_s));

    // A file that is gone is marked, and found again by the user.
    QVERIFY(QFile::rename(file, folder + u"/list.txt"_s));
    QVERIFY(m_trovell->click(button, u"Edit"_s));
    QVERIFY(m_trovell->click(button, u"Locate Again"_s));
    chooseFile(u"Locate Again"_s, folder + u"/list.txt"_s);
    QVERIFY(m_trovell->hides(button, u"Locate Again"_s));
    QVERIFY(m_trovell->click(button, u"Save"_s));
    QVERIFY(m_trovell->shows(label, u"Errands saved."_s));
}

void InterfaceTest::startsAndQuitsFromTheTray()
{
    openTerminals();
    m_desktop->start("tint2", {});
    DesktopInspector& inspector = m_desktop->inspector();
    QVERIFY(waitUntil([&] { return inspector.selectionOwner("_NET_SYSTEM_TRAY_S0") != 0; }));
    QVERIFY(startOnboarded());
    captureAs(u"Work"_s);
    const QRect log = frameOf(u"Log"_s);
    closeMainWindow();
    QVERIFY(m_trovell->isRunning());
    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(30, 500, 300, 200));
    inspector.waitForRest();

    const QByteArray icon =
        m_desktop->run("xdotool", {"search", "--onlyvisible", "--class", "trovell"}).trimmed();
    QVERIFY(!icon.isEmpty());
    const QByteArrayList clickIcon{"mousemove", "--window", icon.split('\n').first(), "8", "8",
                                   "click",     "1"};
    m_desktop->run("xdotool", clickIcon);
    QVERIFY(m_trovell->click(menuItem, u"Work"_s));
    QTRY_COMPARE(frameOf(u"Log"_s), log);
    m_desktop->run("xdotool", clickIcon);
    QVERIFY(m_trovell->click(menuItem, u"Open Trovell"_s));
    QVERIFY(m_trovell->shows(label, u"Workspace ready"_s));

    m_desktop->run("xdotool", clickIcon);
    QVERIFY(m_trovell->click(menuItem, u"Quit Trovell"_s));
    QVERIFY(m_trovell->ends());
    QVERIFY(m_trovell->start());
    QVERIFY(m_trovell->shows(listItem, u"Work"_s));
    QTRY_VERIFY(inspector.windowTitled(u"Trovell")->isActive);
    m_trovell->press("ctrl+q");
    QVERIFY(m_trovell->ends());
}

void InterfaceTest::endsWithItsLastWindowIfToldSo()
{
    DesktopInspector& inspector = m_desktop->inspector();
    QJsonObject preferences = onboarded;
    preferences.insert(u"preferences.keepRunning"_s, false);
    m_trovell->setPreferences(preferences);
    QVERIFY(m_trovell->start());
    QVERIFY(m_trovell->click(button, u"Settings"_s));
    closeMainWindow();
    QTest::qWait(300);
    QVERIFY(m_trovell->isRunning()); // the settings are still open
    inspector.close(inspector.waitForWindow(u"Settings").id);
    QVERIFY(m_trovell->ends());
}

void InterfaceTest::changesLanguageAndAppearanceLive()
{
    // A table that someone dropped into their data folder.
    writeFile(m_desktop->homePath() + u"/.local/share/trovell/translations/trovell_de.qm"_s,
              readFile(QString::fromUtf8(TROVELL_TEST_LANGUAGES) + u"/trovell_en_XA.qm"_s));
    QVERIFY(startOnboarded());
    QVERIFY(m_trovell->click(button, u"Settings"_s));
    QVERIFY(m_trovell->shows(u"combo box"_s, u"Appearance"_s));
    // To the other display: what is covered has no pixels.
    DesktopInspector& inspector = m_desktop->inspector();
    const quint32 settings = inspector.waitForWindow(u"Settings").id;
    inspector.moveWindow(settings, QRect(1800, 100, 680, 560));
    inspector.waitForRest(settings);
    const auto brightness = [&inspector] {
        // Greys there, so that one channel tells.
        const auto window = inspector.windowTitled(u"Trovell");
        return inspector.pixel(window->id, QPoint(100, 500)) & 0xFF;
    };
    QTRY_VERIFY(brightness() > 200);
    QVERIFY(m_trovell->click(u"combo box"_s, u"Appearance"_s));
    QVERIFY(m_trovell->click(menuItem, u"Dark"_s));
    QTRY_VERIFY(brightness() < 60);
    QVERIFY(m_trovell->click(u"combo box"_s, u"Language"_s));
    QVERIFY(m_trovell->click(menuItem, u"Deutsch"_s));
    QVERIFY(m_trovell->hides(button, u"New Empty Workspace"_s)); // in the window behind
    QVERIFY(m_trovell->isRunning());
}

void InterfaceTest::isOneInstance()
{
    QVERIFY(startOnboarded());
    DesktopInspector& inspector = m_desktop->inspector();
    closeMainWindow();
    QProcess& second = m_desktop->start(productPath());
    QVERIFY(second.waitForFinished(10'000));
    QCOMPARE(second.exitCode(), 0);
    QVERIFY(inspector.waitForWindow(u"Trovell").isActive);
    QVERIFY(m_trovell->isRunning());
}

void InterfaceTest::answersGlobalKeysWithTheWindowClosed()
{
    openAndCapture();
    QVERIFY(m_trovell->click(button, u"Edit"_s));
    QVERIFY(m_trovell->scrollDown(label, u"Window Layout"_s));
    QVERIFY(m_trovell->click(u"combo box"_s, u"Shortcut"_s));
    QVERIFY(m_trovell->shows(menuItem, u"Ctrl+Alt+3"_s));
    // By keys: a second click a few pixels from the first one only closes a menu.
    m_desktop->run("xdotool", {"key", "Down", "Down", "Down", "Return"});
    QVERIFY(m_trovell->click(button, u"Save"_s));
    QVERIFY(m_trovell->shows(label, u"Work saved."_s));

    DesktopInspector& inspector = m_desktop->inspector();
    const QRect log = frameOf(u"Log"_s);
    closeMainWindow();
    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(30, 500, 300, 200));
    inspector.waitForRest();
    m_trovell->press("ctrl+alt+3");
    QTRY_COMPARE(frameOf(u"Log"_s), log);
}

QTEST_GUILESS_MAIN(InterfaceTest)
#include "InterfaceTest.moc"
