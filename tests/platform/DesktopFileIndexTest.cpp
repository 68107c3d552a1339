// SPDX-License-Identifier: MIT

#include "platform/freedesktop/DesktopFileIndex.h"

#include "lab/PrivateSession.h"
#include "support/Patience.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace trovell;
using trovell::lab::PrivateSession;

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
    void identifiesByTheFirstRuleThatFits()
    {
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
        const auto verify = [&table](const char* name, const WindowIdentity& identity,
                                     const char* identifier, const ProcessFacts& process = {}) {
            const DesktopEntry* found = table.identify(identity, process);
            QVERIFY2((found ? found->id : QString()) == QString::fromLatin1(identifier), name);
        };
        const ProcessFacts launched{"/apps/Alpha.desktop", "/usr/bin/tool"};
        verify("GTK id", window("Editor-Bin", "", "org.kde.kcalc"), "org.kde.kcalc", launched);
        verify("GTK id is exact", window("Editor-Bin", "", "org.kde.KCalc"), "editor");
        verify("launched", window("Editor-Bin"), "Alpha", launched);
        verify("launched file was replaced", window("Editor-Bin"), "Alpha",
               {"/old/Alpha.desktop", {}});
        verify("launched file is gone", window("Editor-Bin"), "editor", {"/apps/gone.desktop", {}});
        verify("WM class", window("Editor-Bin"), "editor", {{}, "/usr/bin/tool"});
        verify("WM class in another case", window("TERM"), "term-any");
        verify("WM class of the instance", window("Other", "Editor-Bin"), "editor");
        verify("instance before class", window("Term", "Editor-Bin"), "editor");
        verify("web application", window("Browser", "Editor-Bin"), "editor", launched);
        verify("exact instance before another case", window("TERM", "Editor-Bin"), "editor");
        verify("WM class before id", window("Beta"), "says-beta");
        verify("id", window("Alpha"), "Alpha");
        verify("id of the instance", window("Other", "alpha"), "Alpha");
        verify("end of the id", window("kcalc"), "org.kde.kcalc");
        verify("end of the id is no instance", window("Other", "kcalc"), "");
        verify("concealed WM class", window("Helper"), "helper");
        verify("shown one first", window("Twice"), "twice-shown");
        verify("program", window("Other"), "tool-plain", {{}, "/usr/bin/tool"});
        verify("unknown program", window("Other"), "", {{}, "/usr/bin/other"});
    }

    void readsPrograms()
    {
        for (const char* name : {"real", "wine64-preloader", "lua5.3", "luakit", "two words"})
            m_session.addRecorder(QString::fromLatin1(name));
        QFile::link(u"real"_s, m_session.path(u"bin/alias"_s));
        QFile::link(u"real"_s, m_session.path(u"bin/python3"_s));
        const std::tuple<QByteArray, QString, int> cases[]{
            {"BIN/real %U", u"bin/real"_s, 0},
            {"BIN/real --new-window %F", u"bin/real"_s, 2},
            {"BIN/alias", u"bin/real"_s, 1},
            {"\"BIN/two words\" %u", u"bin/two words"_s, 0},
            {"BIN/luakit", u"bin/luakit"_s, 0},
            {"BIN/python3 script.py", {}, 0},
            {"BIN/wine64-preloader game.exe", {}, 0},
            {"BIN/lua5.3 script.lua", {}, 0},
            {"env A=b BIN/real", {}, 0},
            {"sh -c BIN/real", {}, 0}};
        for (const auto& [exec, program, rank] : cases) {
            m_session.addDesktopFile(
                u"program"_s,
                "Exec=" + QByteArray(exec).replace("BIN", m_session.path(u"bin"_s).toUtf8()));
            const auto read = [] {
                const DesktopFileTable table(loadDesktopEntries());
                const DesktopEntry* found = table.entry(u"program"_s);
                return found ? std::pair(found->program, found->programRank)
                             : std::pair(QByteArray("?"), 0);
            };
            const QByteArray expected =
                program.isEmpty() ? QByteArray() : m_session.path(program).toUtf8();
            // GIO takes a moment to notice a change.
            QTRY_COMPARE(read(), std::pair(expected, rank));
        }
    }

    void followsTheApplicationFolders()
    {
        // Nobody writes to it, ever.
        m_session.write(u"data/applications/pipe.desktop"_s, {});
        QFile::remove(m_session.path(u"data/applications/pipe.desktop"_s));
        QCOMPARE(mkfifo(qPrintable(m_session.path(u"data/applications/pipe.desktop"_s)), 0600), 0);
        DesktopFileIndex index;
        QVERIFY(!index.application(u"pipe"_s));
        QVERIFY(!index.identify(window("Changed")));
        const QByteArray application = "[Desktop Entry]\nType=Application\nExec=true\nName=";
        m_session.write(u"share/applications/changed.desktop"_s, application + "System\n");
        m_session.write(u"data/applications/changed.desktop"_s,
                        application + "User\nStartupWMClass=Changed\n");
        m_session.write(u"share/applications/deleted.desktop"_s, application + "x\n");
        m_session.write(u"data/applications/deleted.desktop"_s, application + "x\nHidden=true\n");
        m_session.write(u"share/applications/folder/part.desktop"_s, application + "Part\n");
        m_session.write(u"share/applications/a.concealed.desktop"_s,
                        application + "x\nNoDisplay=true\n");
        m_session.write(u"share/applications/broken.desktop"_s, "[Desktop Entry\nType=Appl");

        // GIO notices the changes of each folder by itself.
        QTRY_VERIFY(index.application(u"folder-part"_s));
        QTRY_VERIFY(index.identify(window("Changed")));
        const auto changed = index.application(u"changed"_s);
        QCOMPARE(changed->name, u"User"_s);
        QCOMPARE(changed->url,
                 QUrl::fromLocalFile(m_session.path(u"data/applications/changed.desktop"_s)));
        QCOMPARE(index.identify(window("Changed")), changed);
        QVERIFY(!index.application(u"deleted"_s));
        QVERIFY(!index.application(u"broken"_s));
        QVERIFY(index.application(u"a.concealed"_s));

        QStringList visible;
        for (const ApplicationIdentity& identity : index.visibleApplications())
            visible.append(identity.bundleIdentifier);
        QVERIFY(visible.contains(u"folder-part"_s) && !visible.contains(u"a.concealed"_s));
        QVERIFY(std::ranges::is_sorted(visible));

        QVERIFY(QFile::remove(m_session.path(u"data/applications/changed.desktop"_s)));
        QTRY_COMPARE(index.application(u"changed"_s).value_or(ApplicationIdentity()).name,
                     u"System"_s);
    }

    void readsFactsOfProcesses()
    {
        // A child inherits what was said of its parent.
        for (const QString& launched : {u"$$"_s, QString::number(getpid())}) {
            QProcess process;
            process.start(
                u"sh"_s,
                {u"-c"_s, u"export GIO_LAUNCHED_DESKTOP_FILE=/apps/x.desktop "
                          "GIO_LAUNCHED_DESKTOP_FILE_PID=%1; exec sleep 60"_s.arg(launched)});
            QVERIFY(process.waitForStarted());
            const auto pid = static_cast<qint32>(process.processId());
            QTRY_VERIFY(readProcessFacts(pid).executable.endsWith("sleep"));
            QCOMPARE(readProcessFacts(pid).launchedDesktopFile,
                     launched == u"$$" ? QByteArray("/apps/x.desktop") : QByteArray());
            process.kill();
            process.waitForFinished();
        }
    }

private:
    PrivateSession m_session;
};

QTEST_GUILESS_MAIN(DesktopFileIndexTest)
#include "DesktopFileIndexTest.moc"
