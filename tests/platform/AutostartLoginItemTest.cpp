// SPDX-License-Identifier: MIT

#include "platform/freedesktop/AutostartLoginItem.h"

#include "lab/Files.h"
#include "lab/PrivateSession.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using enum LoginItemStatus;
using trovell::lab::PrivateSession;

namespace {

const QString id = u"app.trovell.Trovell"_s;
const QString userFile = u"config/autostart/app.trovell.Trovell.desktop"_s;
const QString systemFile = u"xdg/autostart/app.trovell.Trovell.desktop"_s;
const QString installedFile = u"share/applications/app.trovell.Trovell.desktop"_s;

const QByteArray installed = "[Desktop Entry]\nType=Application\nName=Trovell\n"
                             "Name[el]=\xce\xa4\nExec=trovell\nIcon=app.trovell.Trovell\n"
                             "Actions=open-trovell;\nDBusActivatable=true\n\n"
                             "[Desktop Action open-trovell]\nName=Open Trovell\nExec=trovell\n";
const QByteArray plain = "[Desktop Entry]\nType=Application\nName=Trovell\nExec=trovell\n"
                         "Icon=app.trovell.Trovell\n";
/// The user's own: a comment, a translation in Latin-1, keys that mean nothing here, a group.
const QByteArray customized = "# starts late\n[Desktop Entry]\nType=Application\nName=Trovell\n"
                              "Name[fr]=\xc9tag\xe8re\nExec=env LANG=de trovell\n"
                              "X-GNOME-Autostart-Delay=9\n\n[X-Mine]\nkey=1\n";

QByteArray withoutBlankLines(QByteArray text)
{
    while (text.contains("\n\n"))
        text.replace("\n\n", "\n");
    return text;
}

} // namespace

class AutostartLoginItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_session.reset();
        m_session = std::make_unique<PrivateSession>();
        m_session->write(installedFile, installed);
        qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    }

    void tellsTheStatus()
    {
        const auto status = [this](const QByteArray& user, const QByteArray& system = {}) {
            init();
            if (!user.isEmpty())
                m_session->write(userFile, user);
            if (!system.isEmpty())
                m_session->write(systemFile, system);
            return m_item.status();
        };
        QCOMPARE(status({}, plain + "Hidden=true\n"), requiresApproval);
        QCOMPARE(status("[Desktop Entry]\nHidden=true\n", plain), requiresApproval);
        QCOMPARE(status(plain, plain + "Hidden=true\n"), enabled);
        QCOMPARE(status(QByteArray(plain).replace("\n", "\r\n")), enabled);
        // Without Exec it is not started.
        QCOMPARE(status("[Desktop Entry]\nType=Application\nName=T\n"), requiresApproval);
        for (const char* key :
             {"Hidden = 1 ", "X-MATE-Autostart-enabled=false", "OnlyShowIn=KDE;XFCE;",
              "OnlyShowIn=", "NotShowIn=GNOME;", "TryExec=/nothing/there"})
            QVERIFY2(status(plain + key + '\n') == requiresApproval, key);
        for (const char* key : {"Hidden=maybe", "OnlyShowIn=KDE;GNOME", "NotShowIn=KDE;",
                                "TryExec=sh", "[Desktop Action x]\nHidden=true"})
            QVERIFY2(status(plain + key + '\n') == enabled, key);
    }

    void ignoresWhatIsNoEntry()
    {
        for (const QByteArray& user : {QByteArray(""), QByteArray("Exec=trovell\n"),
                                       QByteArray("\x89PNG\r\n\0\0\0\rIHDR", 14)}) {
            m_session->write(userFile, user);
            QCOMPARE(m_item.status(), notRegistered);
            QVERIFY(m_item.unregisterLoginItem());
            QCOMPARE(content(userFile), user);
            QVERIFY(m_item.registerLoginItem());
            QCOMPARE(content(userFile), plain);
        }
    }

    void needsTheProgramToBeInstalled()
    {
        // A user can remove what the system has installed.
        m_session->addDesktopFile(id, "Hidden=true");
        QCOMPARE(m_item.status(), notFound);
        const auto result = m_item.registerLoginItem();
        QCOMPARE(result.error(), u"app.trovell.Trovell.desktop: No such file or directory"_s);
        QVERIFY(!QFileInfo::exists(path(userFile)));
        // What starts at login can still be switched off.
        m_session->write(userFile, plain);
        QCOMPARE(m_item.status(), enabled);
        QCOMPARE(statusSwitchedOff(), requiresApproval);
    }

    void switchesOnAndOff()
    {
        // Switched off by nobody, by GNOME, by Xfce or KDE, for other desktops.
        for (const char* keys : {"", "X-GNOME-Autostart-enabled=false\n", "Hidden=true\n",
                                 "OnlyShowIn=KDE;\nNotShowIn=GNOME;\n"}) {
            if (*keys != '\0')
                m_session->write(userFile, plain + keys);
            for (int round = 0; round < 2; ++round) {
                QCOMPARE(statusSwitchedOn(), enabled);
                QCOMPARE(content(userFile), plain);
            }
            for (int round = 0; round < 2; ++round) {
                QCOMPARE(statusSwitchedOff(), notRegistered);
                QVERIFY(QDir(path(u"config/autostart"_s)).isEmpty());
            }
        }
        QVERIFY(m_item.registerLoginItem());
        QProcess validator;
        validator.start(u"desktop-file-validate"_s, {path(userFile)});
        QVERIFY(validator.waitForFinished());
        QCOMPARE(validator.readAll(), QByteArray());
        QCOMPARE(validator.exitCode(), 0);
        QVERIFY(!(QFile::permissions(path(userFile)) &
                  (QFile::ExeOwner | QFile::WriteGroup | QFile::WriteOther)));
    }

    void keepsWhatTheUserWrote()
    {
        for (const QByteArray& entry :
             {customized, QByteArray(plain).replace("Exec=", "Exec=nice "),
              plain + "X-KDE-autostart-phase=2\n"}) {
            m_session->write(userFile, entry);
            QCOMPARE(statusSwitchedOff(), requiresApproval);
            const QByteArray off = content(userFile);
            QCOMPARE(withoutBlankLines(off).replace("Hidden=true\n", ""), withoutBlankLines(entry));
            QVERIFY(m_item.unregisterLoginItem());
            QCOMPARE(content(userFile), off);
            QVERIFY(m_item.registerLoginItem());
            QCOMPARE(withoutBlankLines(content(userFile)), withoutBlankLines(entry));
        }
    }

    void switchesASystemEntryOff()
    {
        m_session->write(systemFile, plain);
        QVERIFY(m_item.registerLoginItem());
        QVERIFY(!QFileInfo::exists(path(userFile)));
        // The second time, removing the user's entry would bring the system's back.
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(statusSwitchedOff(), requiresApproval);
            QCOMPARE(statusSwitchedOn(), enabled);
        }
        QCOMPARE(content(systemFile), plain);
    }

    void leavesFilesBehindLinksAlone()
    {
        QDir().mkpath(path(u"config/autostart"_s));
        QVERIFY(QFile::link(path(installedFile), path(userFile)));
        QCOMPARE(m_item.status(), enabled);
        QVERIFY(m_item.unregisterLoginItem());
        QVERIFY(!QFileInfo(path(userFile)).isSymLink());
        QCOMPARE(content(installedFile), installed);
    }

    void saysWhyItFailed()
    {
        const std::pair<QString, QString> obstacles[]{
            {userFile + u"/folder"_s, u"Is a directory"_s},
            {u"config/autostart"_s, u"Not a directory"_s}};
        for (const auto& [obstacle, reason] : obstacles) {
            init();
            m_session->write(obstacle, "");
            QCOMPARE(m_item.status(), notRegistered);
            const auto registered = m_item.registerLoginItem();
            QVERIFY(!registered && registered.error().endsWith(reason));
            m_session->write(systemFile, plain);
            const auto unregistered = m_item.unregisterLoginItem();
            QVERIFY(!unregistered && unregistered.error().endsWith(reason));
            QCOMPARE(m_item.status(), enabled);
        }
    }

private:
    QString path(const QString& name) const { return m_session->path(name); }
    LoginItemStatus statusSwitchedOn()
    {
        return m_item.registerLoginItem() ? m_item.status() : notFound;
    }
    LoginItemStatus statusSwitchedOff()
    {
        return m_item.unregisterLoginItem() ? m_item.status() : notFound;
    }
    QByteArray content(const QString& name) const { return lab::readFile(path(name)); }

    std::unique_ptr<PrivateSession> m_session;
    AutostartLoginItem m_item{id};
};

QTEST_GUILESS_MAIN(AutostartLoginItemTest)
#include "AutostartLoginItemTest.moc"
