// SPDX-License-Identifier: MIT

#include "platform/freedesktop/OwnedBusNames.h"

#include "lab/PrivateSession.h"
#include "platform/freedesktop/DesktopFileIndex.h"
#include "support/BusClient.h"
#include "support/Patience.h"

#include <QtTest>

#include <memory>

#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

class OwnedBusNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_session.addDesktopFile(u"org.example.Player"_s, "Exec=true");
        m_session.addDesktopFile(u"org.example.Silent"_s, "Exec=true");
        m_session.addDesktopFile(u"org.example.Agent"_s, "Exec=true\nNoDisplay=true");
        m_session.addDesktopFile(u"nodots"_s, "Exec=true");
    }

    void tellsWhatRuns()
    {
        QVERIFY(m_session.startBus());
        const QString service = m_session.addRecorder(u"service"_s);
        m_session.write(u"data/dbus-1/services/org.example.Silent.service"_s,
                        "[D-BUS Service]\nName=org.example.Silent\nExec=" + service.toUtf8() +
                            "\n");
        const BusClient agent("org.example.Agent");
        const BusClient stranger("org.example.NotInstalled");
        auto player = std::make_unique<BusClient>("org.example.Player");

        DesktopFileIndex installed;
        // Destroyed before it is connected: nothing may come back to it.
        std::make_unique<OwnedBusNames>(installed).reset();
        const OwnedBusNames names(installed);
        QTRY_VERIFY(names.isConnected());

        const auto find = [&](const QString& identifier) {
            const auto all = names.running(QSet<QString>{identifier});
            return all.isEmpty() ? std::nullopt : std::optional(all.first());
        };
        const auto found = find(u"org.example.Player"_s);
        QVERIFY(found);
        QCOMPARE(found->processIdentifier, static_cast<qint32>(getpid()));
        QVERIFY(found->isRegular && found->windows.isEmpty());
        QCOMPARE(found->bundleIdentifier, u"org.example.Player"_s);
        QCOMPARE(found->localizedName, u"org.example.Player"_s);
        QCOMPARE(found->bundleURL, installed.application(u"org.example.Player"_s)->url.toString());
        QVERIFY(find(u"org.example.Agent"_s));
        for (const QString& other : {u"org.example.Silent"_s, u"org.example.NotInstalled"_s,
                                     u"nodots"_s, u"not a name"_s, u":1.1"_s, QString()})
            QVERIFY2(!find(other), qPrintable(other));

        const auto running = names.running({});
        QCOMPARE(running.size(), 1);
        QCOMPARE(running.first().bundleIdentifier, u"org.example.Player"_s);

        player.reset();
        QTRY_VERIFY(!find(u"org.example.Player"_s));
        QVERIFY(names.running({}).isEmpty());
        QVERIFY(!m_session.recorded(service));
    }

private:
    PrivateSession m_session;
};

QTEST_GUILESS_MAIN(OwnedBusNamesTest)
#include "OwnedBusNamesTest.moc"
