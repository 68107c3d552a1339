#include "platform/freedesktop/GioResourceSystem.h"

#include "support/PrivateSession.h"

#include <QtTest>

#include <sys/wait.h>

using namespace trovell;
using trovell::test::PrivateSession;

class GioResourceSystemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QByteArray viewer = m_session.addRecorder(u"viewer"_qs).toUtf8();
        m_session.addDesktopFile(u"org.example.Viewer"_qs, "Exec=" + viewer + " %u");
        const QByteArray editor = m_session.addRecorder(u"editor"_qs).toUtf8();
        m_session.addDesktopFile(u"org.example.Editor"_qs, "Exec=" + editor + " --new %F");
        m_session.addDesktopFile(u"org.example.Gone"_qs, "Exec=/nothing/there %u");
        m_session.setDefault(u"x-scheme-handler/https"_qs, u"org.example.Viewer"_qs);
        m_session.setDefault(u"inode/directory"_qs, u"org.example.Viewer"_qs);
        m_session.setDefault(u"text/plain"_qs, u"org.example.Editor"_qs);
        m_session.setDefault(u"x-scheme-handler/gone"_qs, u"org.example.Gone"_qs);
        m_session.write(u"notes/todo list 100%.txt"_qs, "Things to do\n");
    }

    void opensInTheDefaultApplication()
    {
        const auto verify = [this](const QUrl& opened, const QString& recorder,
                                   const QStringList& arguments) {
            const QString program = m_session.path(u"bin/"_qs + recorder);
            QFile::remove(program + u".record"_qs);
            QVERIFY(m_system.openResource(opened));
            QTRY_VERIFY(m_session.recorded(program));
            QCOMPARE(m_session.recorded(program)->arguments, arguments);
        };
        const QUrl link(u"https://wiki.local/über?a=b&c=%26#d"_qs);
        const QUrl file = url(u"notes/todo list 100%.txt"_qs);
        const QUrl folder = url(u"notes"_qs);
        verify(link, u"viewer"_qs, {QString::fromLatin1(link.toEncoded())});
        verify(folder, u"viewer"_qs, {folder.toLocalFile()});
        verify(file, u"editor"_qs, {u"--new"_qs, file.toLocalFile()});
    }

    void refusesResources()
    {
        // Missing; without an application; with one whose program is gone; no URL.
        for (const QUrl& refused :
             {url(u"notes/gone.txt"_qs), QUrl(u"gopher://wiki.local"_qs),
              QUrl(u"gone://wiki.local"_qs), QUrl(m_session.path(u"notes"_qs)), QUrl()})
            QVERIFY2(!m_system.openResource(refused), qPrintable(refused.toString()));
    }

    void startsApplicationsDetached()
    {
        const QString program = m_session.addRecorder(u"detached"_qs);
        const QString desktopFile =
            m_session.addDesktopFile(u"detached"_qs, "Exec=" + program.toUtf8() + " --flag %U");
        qputenv("DESKTOP_STARTUP_ID", "of-this-program");

        QVERIFY(m_system.openApplication(QUrl::fromLocalFile(desktopFile)));
        QTRY_VERIFY(m_session.recorded(program));
        const auto start = m_session.recorded(program);
        QCOMPARE(start->arguments, QStringList{u"--flag"_qs});
        QCOMPARE(start->sessionId, start->pid);
        QCOMPARE(start->streams, QStringList(3, u"/dev/null"_qs));
        QCOMPARE(start->launchedDesktopFile, desktopFile);
        QVERIFY(start->startupId.isEmpty());
        // It is no child of this process: not even a zombie of it is left.
        QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
        QCOMPARE(errno, ECHILD);
    }

    void refusesApplications()
    {
        const QByteArray exec = "Exec=" + m_session.path(u"bin/viewer"_qs).toUtf8();
        for (const QByteArray& lines :
             {QByteArray("Comment=nothing"), QByteArray("Exec=/nothing/there"),
              exec + "\nTryExec=/nothing/there", exec + "\nHidden=true",
              exec + "\nPath=/nothing/there"}) {
            const QString file = m_session.addDesktopFile(u"refused"_qs, lines);
            QVERIFY2(!m_system.openApplication(QUrl::fromLocalFile(file)), lines.constData());
        }
        const QString link = m_session.write(
            u"link.desktop"_qs, "[Desktop Entry]\nType=Link\nName=x\nURL=https://wiki.local\n");
        for (const QUrl& refused :
             {QUrl::fromLocalFile(link), url(u"data/applications/missing.desktop"_qs),
              url(u"bin/viewer"_qs), QUrl()})
            QVERIFY2(!m_system.openApplication(refused), qPrintable(refused.toString()));
    }

    void bookmarksFilesOfTheHome()
    {
        m_session.write(u"Documents/report.odt"_qs, "text");
        const auto bookmark = m_system.createBookmark(url(u"Documents/report.odt"_qs));
        QVERIFY(bookmark);
        QVERIFY(QFile::rename(m_session.path(u"Documents"_qs), m_session.path(u"Archive"_qs)));
        const auto resolved = m_system.resolveBookmark(*bookmark);
        QVERIFY(resolved && resolved->isStale);
        QCOMPARE(resolved->url, url(u"Archive/report.odt"_qs));
    }

private:
    QUrl url(const QString& name) const { return QUrl::fromLocalFile(m_session.path(name)); }

    PrivateSession m_session;
    GioResourceSystem m_system;
};

QTEST_GUILESS_MAIN(GioResourceSystemTest)
#include "GioResourceSystemTest.moc"
