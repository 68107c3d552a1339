#include "platform/freedesktop/DesktopFileIndex.h"

#include "support/PrivateSession.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <memory>

#include <unistd.h>

using namespace trovell;
using trovell::test::PrivateSession;

namespace {

DesktopEntry entry(const char* id, const char* wmClass = "", const char* program = "", int rank = 0)
{
    DesktopEntry made;
    made.id = QString::fromLatin1(id);
    made.path = QByteArray("/apps/") + id + ".desktop";
    made.startupWMClass = QString::fromLatin1(wmClass);
    made.program = program;
    made.programRank = rank;
    return made;
}

DesktopEntry concealed(DesktopEntry made)
{
    made.isConcealed = true;
    return made;
}

WindowIdentity window(const char* wmClass, const char* instance = "", const char* gtkId = "")
{
    return {0, QString::fromLatin1(wmClass), QString::fromLatin1(instance),
            QString::fromLatin1(gtkId)};
}

} // namespace

class DesktopFileIndexTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_session = std::make_unique<PrivateSession>(); }
    void identifiesByTheFirstRuleThatFits_data();
    void identifiesByTheFirstRuleThatFits();
    void readsPrograms_data();
    void readsPrograms();
    void readsTheApplicationFolders();
    void readsFactsOfProcesses();
    void identifiesByTheProcess();
    void followsInstallations();

private:
    std::unique_ptr<PrivateSession> m_session;
};

void DesktopFileIndexTest::identifiesByTheFirstRuleThatFits_data()
{
    QTest::addColumn<WindowIdentity>("window");
    QTest::addColumn<ProcessFacts>("process");
    QTest::addColumn<QString>("identifier"); // empty for none

    const auto row = [](const char* name, const WindowIdentity& identity, const char* identifier,
                        const ProcessFacts& process = {}) {
        QTest::newRow(name) << identity << process << QString::fromLatin1(identifier);
    };
    const ProcessFacts launched{"/apps/Alpha.desktop", "/usr/bin/tool"};
    row("GTK id", window("Editor-Bin", "", "org.kde.kcalc"), "org.kde.kcalc", launched);
    row("GTK id is exact", window("Editor-Bin", "", "org.kde.KCalc"), "editor");
    row("launched", window("Editor-Bin"), "Alpha", launched);
    row("launched file was replaced", window("Editor-Bin"), "Alpha", {"/old/Alpha.desktop", {}});
    row("launched file is gone", window("Editor-Bin"), "editor", {"/apps/gone.desktop", {}});
    row("WM class", window("Editor-Bin"), "editor", {{}, "/usr/bin/tool"});
    row("WM class in another case", window("TERM"), "term-any");
    row("WM class of the instance", window("Other", "Editor-Bin"), "editor");
    row("class before instance", window("Term", "Editor-Bin"), "term-exact");
    row("exact instance before another case", window("TERM", "Editor-Bin"), "editor");
    row("WM class before id", window("Beta"), "says-beta");
    row("id", window("Alpha"), "Alpha");
    row("id of the instance", window("Other", "alpha"), "Alpha");
    row("end of the id", window("kcalc"), "org.kde.kcalc");
    row("end of the id is no instance", window("Other", "kcalc"), "");
    row("concealed WM class", window("Helper"), "helper");
    row("shown one first", window("Twice"), "twice-shown");
    row("program", window("Other"), "tool-plain", {{}, "/usr/bin/tool"});
    row("unknown program", window("Other"), "", {{}, "/usr/bin/other"});
}

void DesktopFileIndexTest::identifiesByTheFirstRuleThatFits()
{
    QFETCH(WindowIdentity, window);
    QFETCH(ProcessFacts, process);
    QFETCH(QString, identifier);
    const DesktopFileTable table({
        entry("Alpha"),
        entry("Beta"),
        entry("editor", "Editor-Bin"),
        entry("org.kde.kcalc"),
        entry("says-beta", "Beta"),
        entry("term-any", "term"),
        entry("term-exact", "Term"),
        entry("tool-new-window", "", "/usr/bin/tool", 2),
        entry("tool-plain", "", "/usr/bin/tool"),
        entry("twice-shown", "Twice"),
        concealed(entry("helper", "Helper", "/usr/bin/helper")),
        concealed(entry("twice-concealed", "Twice")),
    });
    const DesktopEntry* found = table.identify(window, process);
    QCOMPARE(found ? found->id : QString(), identifier);
}

void DesktopFileIndexTest::readsPrograms_data()
{
    QTest::addColumn<QByteArray>("exec");
    QTest::addColumn<QString>("program"); // in the private HOME; empty for none
    QTest::addColumn<int>("rank");

    m_session->addRecorder(u"real"_qs);
    QFile::link(u"real"_qs, m_session->path(u"bin/alias"_qs));
    QFile::link(u"real"_qs, m_session->path(u"bin/python3"_qs));
    m_session->addRecorder(u"wine64-preloader"_qs);
    m_session->addRecorder(u"lua5.3"_qs);
    m_session->addRecorder(u"luakit"_qs);
    m_session->addRecorder(u"two words"_qs);

    const auto row = [](const char* exec, const char* program, int rank) {
        QTest::newRow(exec) << QByteArray(exec) << QString::fromLatin1(program) << rank;
    };
    row("BIN/real %U", "bin/real", 0);
    row("BIN/real --new-window %F", "bin/real", 2);
    row("BIN/alias", "bin/real", 1);
    row("\"BIN/two words\" %u", "bin/two words", 0);
    row("BIN/luakit", "bin/luakit", 0);
    row("BIN/python3 script.py", "", 0);
    row("BIN/wine64-preloader game.exe", "", 0);
    row("BIN/lua5.3 script.lua", "", 0);
    row("env A=b BIN/real", "", 0);
    row("sh -c BIN/real", "", 0);
}

void DesktopFileIndexTest::readsPrograms()
{
    QFETCH(QByteArray, exec);
    QFETCH(QString, program);
    QFETCH(int, rank);
    m_session->addDesktopFile(u"program"_qs,
                              "Exec=" + exec.replace("BIN", m_session->path(u"bin"_qs).toUtf8()));
    const QByteArray expected =
        program.isEmpty() ? QByteArray() : m_session->path(program).toUtf8();
    const auto read = [] {
        const DesktopFileTable table(loadDesktopEntries());
        const DesktopEntry* found = table.entry(u"program"_qs);
        return found ? *found : entry("not yet read", "", "not yet read");
    };
    // GIO takes a moment to notice a change.
    QTRY_COMPARE(read().program, expected);
    QCOMPARE(read().programRank, rank);
}

void DesktopFileIndexTest::readsTheApplicationFolders()
{
    const QByteArray application = "[Desktop Entry]\nType=Application\nExec=true\nName=";
    m_session->write(u"share/applications/changed.desktop"_qs, application + "System\n");
    m_session->write(u"data/applications/changed.desktop"_qs,
                     application + "User\nStartupWMClass=Changed\n");
    m_session->write(u"share/applications/deleted.desktop"_qs, application + "x\n");
    m_session->write(u"data/applications/deleted.desktop"_qs, application + "x\nHidden=true\n");
    m_session->write(u"share/applications/folder/part.desktop"_qs, application + "Part\n");
    m_session->write(u"share/applications/a.concealed.desktop"_qs,
                     application + "x\nNoDisplay=true\n");
    m_session->write(u"share/applications/broken.desktop"_qs, "[Desktop Entry\nType=Appl");

    DesktopFileIndex index;
    // GIO notices the changes of each folder by itself.
    QTRY_VERIFY(index.application(u"folder-part"_qs));
    QTRY_VERIFY(index.identify(window("Changed")));
    const auto changed = index.application(u"changed"_qs);
    QCOMPARE(changed->name, u"User"_qs);
    QCOMPARE(changed->url,
             QUrl::fromLocalFile(m_session->path(u"data/applications/changed.desktop"_qs)));
    QCOMPARE(index.identify(window("Changed")), changed);
    QVERIFY(!index.application(u"deleted"_qs));
    QVERIFY(!index.application(u"broken"_qs));
    QVERIFY(index.application(u"a.concealed"_qs));

    QStringList visible;
    for (const ApplicationIdentity& identity : index.visibleApplications())
        visible.append(identity.bundleIdentifier);
    QVERIFY(visible.contains(u"folder-part"_qs) && !visible.contains(u"a.concealed"_qs));
    QStringList sorted = visible;
    sorted.sort();
    QCOMPARE(visible, sorted);
}

void DesktopFileIndexTest::readsFactsOfProcesses()
{
    QProcess process;
    process.start(u"sh"_qs, {u"-c"_qs, u"export GIO_LAUNCHED_DESKTOP_FILE=/apps/x.desktop "
                                       "GIO_LAUNCHED_DESKTOP_FILE_PID=$$; exec sleep 60"_qs});
    QVERIFY(process.waitForStarted());
    const auto pid = static_cast<qint32>(process.processId());
    QTRY_COMPARE(readProcessFacts(pid).launchedDesktopFile, QByteArray("/apps/x.desktop"));
    QVERIFY(readProcessFacts(pid).executable.startsWith('/'));
    process.kill();
    process.waitForFinished();
    QCOMPARE(readProcessFacts(pid).executable, QByteArray());

    // A child inherits what was said of its parent.
    qputenv("GIO_LAUNCHED_DESKTOP_FILE", "/apps/x.desktop");
    qputenv("GIO_LAUNCHED_DESKTOP_FILE_PID", QByteArray::number(getpid()));
    process.start(u"sleep"_qs, {u"60"_qs});
    QVERIFY(process.waitForStarted());
    const auto child = static_cast<qint32>(process.processId());
    QTRY_VERIFY(readProcessFacts(child).executable.endsWith("sleep"));
    QCOMPARE(readProcessFacts(child).launchedDesktopFile, QByteArray());
    process.kill();
    process.waitForFinished();
}

void DesktopFileIndexTest::identifiesByTheProcess()
{
    const QString program = m_session->path(u"bin/snoozer"_qs);
    QVERIFY(QFile::copy(u"/bin/sleep"_qs, program));
    m_session->addDesktopFile(u"org.example.Sleeper"_qs, "Exec=" + program.toUtf8() + " %u");
    QProcess process;
    process.start(program, {u"60"_qs});
    QVERIFY(process.waitForStarted());

    DesktopFileIndex index;
    WindowIdentity identity = window("Unheard-of", "unheard-of");
    identity.processIdentifier = static_cast<qint32>(process.processId());
    QTRY_VERIFY(index.application(u"org.example.Sleeper"_qs));
    QCOMPARE(index.identify(identity), index.application(u"org.example.Sleeper"_qs));

    // Updated while it runs.
    QVERIFY(QFile::remove(program) && QFile::copy(u"/bin/sleep"_qs, program));
    DesktopFileIndex other;
    QCOMPARE(other.identify(identity), index.application(u"org.example.Sleeper"_qs));
    process.kill();
    process.waitForFinished();
}

void DesktopFileIndexTest::followsInstallations()
{
    DesktopFileIndex index;
    QVERIFY(!index.identify(window("Newcomer")));
    const QString file = m_session->addDesktopFile(u"org.example.Newcomer"_qs, "Exec=true");
    QTRY_VERIFY(index.identify(window("Newcomer")));
    QVERIFY(QFile::remove(file));
    QTRY_VERIFY(!index.identify(window("Newcomer")));
}

QTEST_GUILESS_MAIN(DesktopFileIndexTest)
#include "DesktopFileIndexTest.moc"
