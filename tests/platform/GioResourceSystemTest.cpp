// SPDX-License-Identifier: MIT

#include "platform/freedesktop/GioResourceSystem.h"

#include "lab/PrivateSession.h"
#include "support/BusClient.h"
#include "support/Patience.h"

#include <QtTest>

#include <sys/wait.h>

using namespace Qt::StringLiterals;

using namespace trovell;
using trovell::lab::PrivateSession;

class GioResourceSystemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_session.startBus());
        const QByteArray viewer = m_session.addRecorder(u"viewer"_s).toUtf8();
        m_session.addDesktopFile(u"org.example.Viewer"_s, "Exec=" + viewer + " %u");
        const QByteArray editor = m_session.addRecorder(u"editor"_s).toUtf8();
        m_session.addDesktopFile(u"org.example.Editor"_s, "Exec=" + editor + " --new %F");
        m_session.addDesktopFile(u"org.example.Gone"_s, "Exec=/nothing/there %u");
        m_session.setDefault(u"x-scheme-handler/https"_s, u"org.example.Viewer"_s);
        m_session.setDefault(u"inode/directory"_s, u"org.example.Viewer"_s);
        m_session.setDefault(u"text/plain"_s, u"org.example.Editor"_s);
        m_session.setDefault(u"x-scheme-handler/gone"_s, u"org.example.Gone"_s);
        m_session.write(u"notes/todo list 100%.txt"_s, "Things to do\n");
    }

    void opensInTheDefaultApplication()
    {
        const auto verify = [this](const QUrl& opened, const QString& recorder,
                                   const QStringList& arguments) {
            const QString program = m_session.path(u"bin/"_s + recorder);
            QFile::remove(program + u".record"_s);
            QVERIFY(m_system.openResource(opened));
            QTRY_VERIFY(m_session.recorded(program));
            QCOMPARE(m_session.recorded(program)->arguments, arguments);
        };
        const QUrl link(u"https://wiki.local/über?a=b&c=%26#d"_s);
        const QUrl file = url(u"notes/todo list 100%.txt"_s);
        const QUrl folder = url(u"notes"_s);
        verify(link, u"viewer"_s, {QString::fromLatin1(link.toEncoded())});
        verify(folder, u"viewer"_s, {folder.toLocalFile()});
        verify(file, u"editor"_s, {u"--new"_s, file.toLocalFile()});
    }

    void refusesResources()
    {
        // Missing; without an application; with one whose program is gone; no URL.
        for (const QUrl& refused :
             {url(u"notes/gone.txt"_s), QUrl(u"gopher://wiki.local"_s),
              QUrl(u"gone://wiki.local"_s), QUrl(m_session.path(u"notes"_s)), QUrl()})
            QVERIFY2(!m_system.openResource(refused), qPrintable(refused.toString()));
    }

    void startsApplicationsDetached()
    {
        const QString program = m_session.addRecorder(u"detached"_s);
        const QString desktopFile =
            m_session.addDesktopFile(u"detached"_s, "Exec=" + program.toUtf8() + " --flag %U");
        qputenv("DESKTOP_STARTUP_ID", "of-this-program");
        qputenv("NOTIFY_SOCKET", "of-this-program");

        QVERIFY(m_system.openApplication(QUrl::fromLocalFile(desktopFile)));
        QTRY_VERIFY(m_session.recorded(program));
        const auto start = m_session.recorded(program);
        QCOMPARE(start->arguments, QStringList{u"--flag"_s});
        QCOMPARE(start->sessionId, start->pid);
        QCOMPARE(start->streams, QStringList(3, u"/dev/null"_s));
        QCOMPARE(start->launchedDesktopFile, desktopFile);
        QVERIFY(start->startupId.isEmpty());
        QVERIFY(start->notifySocket.isEmpty());
        QCOMPARE(start->folder, QDir(m_session.path({})).canonicalPath());
        // It is no child of this process: not even a zombie of it is left.
        QCOMPARE(waitpid(-1, nullptr, WNOHANG), 0); // nothing but the bus is, which runs
    }

    void startsThemAsWished()
    {
        const QByteArray program = m_session.addRecorder(u"wished"_s).toUtf8();
        const QString file = m_session.addDesktopFile(
            u"org.example.Wished"_s, "Exec=" + program + " --own %U\nDBusActivatable=true");
        m_session.write(u"work/note"_s, "");
        const QString folder = QDir(m_session.path(u"work"_s)).canonicalPath();
        const auto startedBy = [&](auto start) {
            QFile::remove(QString::fromUtf8(program) + u".record"_s);
            if (!start())
                qFatal("refused");
            const bool isRecorded = QTest::qWaitFor(
                [&] { return m_session.recorded(QString::fromUtf8(program)).has_value(); }, 60'000);
            if (!isRecorded)
                qFatal("not started");
            return *m_session.recorded(QString::fromUtf8(program));
        };
        const auto wished = startedBy([&] {
            return m_system.openApplication(QUrl::fromLocalFile(file),
                                            {u"'two words' 100%"_s, folder});
        });
        QCOMPARE(wished.arguments, (QStringList{u"--own"_s, u"two words"_s, u"100%"_s}));
        QCOMPARE(wished.folder, folder);

        // A program without a desktop file, whatever its name.
        const QString strange = m_session.path(u"bin/my %f 'tool'"_s);
        QVERIFY(QFile::copy(QString::fromUtf8(program), strange));
        QVERIFY(m_system.openApplication(QUrl::fromLocalFile(strange)));
        QTRY_VERIFY(m_session.recorded(strange));

        // Another application than the default one, unless it is gone.
        m_session.addDesktopFile(u"org.example.Wished"_s, "Exec=" + program + " %U");
        const QUrl note = url(u"work/note"_s);
        const auto opened =
            startedBy([&] { return m_system.openResource(note, u"org.example.Wished"_s); });
        QCOMPARE(opened.arguments, QStringList{note.toLocalFile()});
        QVERIFY(m_system.openResource(url(u"notes/todo list 100%.txt"_s), u"org.example.Nope"_s));

        // One more window, by its action or by starting it again.
        const QByteArray base = "Exec=" + program + " --first";
        const auto newWindow = [&](const QByteArray& lines) {
            m_session.addDesktopFile(u"org.example.Wished"_s, base + lines);
            return startedBy([&] { return m_system.openNewWindow(u"org.example.Wished"_s); })
                .arguments;
        };
        QCOMPARE(newWindow("\nActions=new-window\n[Desktop Action new-window]\nName=New\nExec=" +
                           program + " --another"),
                 QStringList{u"--another"_s});
        QCOMPARE(newWindow(""), QStringList{u"--first"_s});
        m_session.addDesktopFile(u"org.example.Wished"_s, base + "\nSingleMainWindow=true");
        QVERIFY(!m_system.openNewWindow(u"org.example.Wished"_s));
        QVERIFY(!m_system.openNewWindow(u"org.example.Nope"_s));
    }

    void keepsThemByThemselves()
    {
        // The user's service manager, as far as it is asked for anything.
        const test::BusClient manager("org.freedesktop.systemd1");
        QByteArrayList scopes;
        const auto handle = [](GDBusConnection*, const char*, const char*, const char*,
                               const char* method, GVariant* parameters,
                               GDBusMethodInvocation* call, gpointer data) {
            const char* name = nullptr;
            g_variant_get_child(parameters, 0, "&s", &name);
            static_cast<QByteArrayList*>(data)->append(QByteArray(method) + ' ' + name);
            g_dbus_method_invocation_return_value(call, g_variant_new("(o)", "/job"));
        };
        const GPointer<GDBusNodeInfo, g_dbus_node_info_unref> node(g_dbus_node_info_new_for_xml(
            "<node><interface name='org.freedesktop.systemd1.Manager'>"
            "<method name='StartTransientUnit'><arg type='s' direction='in'/>"
            "<arg type='s' direction='in'/><arg type='a(sv)' direction='in'/>"
            "<arg type='a(sa(sv))' direction='in'/><arg type='o' direction='out'/></method>"
            "</interface></node>",
            nullptr));
        const GDBusInterfaceVTable table{handle, nullptr, nullptr, {}};
        g_dbus_connection_register_object(manager.connection(), "/org/freedesktop/systemd1",
                                          node->interfaces[0], &table, &scopes, nullptr, nullptr);
        QVERIFY(m_system.openResource(QUrl(u"https://wiki.local"_s)));
        QTRY_COMPARE(scopes.size(), 1);
        QVERIFY(scopes.first().startsWith("StartTransientUnit app-org.example.Viewer-"));
        QVERIFY(scopes.first().endsWith(".scope"));
    }

    void refusesApplications()
    {
        const QByteArray exec = "Exec=" + m_session.path(u"bin/viewer"_s).toUtf8();
        for (const QByteArray& lines :
             {QByteArray("Comment=nothing"), QByteArray("Exec=/nothing/there"),
              exec + "\nTryExec=/nothing/there", exec + "\nHidden=true",
              exec + "\nPath=/nothing/there"}) {
            const QString file = m_session.addDesktopFile(u"refused"_s, lines);
            QVERIFY2(!m_system.openApplication(QUrl::fromLocalFile(file)), lines.constData());
        }
        const QString link = m_session.write(
            u"link.desktop"_s, "[Desktop Entry]\nType=Link\nName=x\nURL=https://wiki.local\n");
        for (const QUrl& refused :
             {QUrl::fromLocalFile(link), url(u"data/applications/missing.desktop"_s),
              url(u"notes/todo list 100%.txt"_s), QUrl()})
            QVERIFY2(!m_system.openApplication(refused), qPrintable(refused.toString()));
    }

    void bookmarksFilesOfTheHome()
    {
        m_session.write(u"Documents/report.odt"_s, "text");
        const auto bookmark = m_system.createBookmark(url(u"Documents/report.odt"_s));
        QVERIFY(bookmark);
        QVERIFY(QFile::rename(m_session.path(u"Documents"_s), m_session.path(u"Archive"_s)));
        const auto resolved = m_system.resolveBookmark(*bookmark);
        QVERIFY(resolved && resolved->isStale);
        QCOMPARE(resolved->url, url(u"Archive/report.odt"_s));
    }

private:
    QUrl url(const QString& name) const { return QUrl::fromLocalFile(m_session.path(name)); }

    PrivateSession m_session;
    GioResourceSystem m_system;
};

QTEST_GUILESS_MAIN(GioResourceSystemTest)
#include "GioResourceSystemTest.moc"
