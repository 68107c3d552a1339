// SPDX-License-Identifier: MIT
//
// Which back end a session gets, and that the last one asks for no desktop at all.
#include "platform/BackEnds.h"
#include "lab/PrivateSession.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

class BackEndsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fitsTheSession()
    {
        const auto name = [](const SessionFacts& session) {
            return QByteArray(backEndFor(session).name);
        };
        // Where no server runs that could tell of its window manager.
        const QString display = u":59999"_s;
        QCOMPARE(name({u"x11"_s, {}, display}), "x11");
        QCOMPARE(name({{}, {}, display}), "x11");
        QCOMPARE(name({u"tty"_s, {}, display}), "x11");
        // X11 would show the windows of XWayland only.
        QCOMPARE(name({u"wayland"_s, {}, display}), "null");
        QCOMPARE(name({u"x11"_s, u"wayland-0"_s, display}), "null");
        QCOMPARE(name({u"tty"_s, {}, {}}), "null");
    }

    void launchItemsOpenWithoutAnyDesktop()
    {
        const lab::PrivateSession session;
        const PlatformAdapters adapters = backEndFor({}).create(u"app.trovell.Trovell"_s);
        QVERIFY(adapters.resourceSystem && adapters.loginItemSystem && adapters.settings);
        const DesktopSnapshot desktop = adapters.windowSystem->ask({}).result();
        QVERIFY(desktop.control != WindowControl::available);
        const QList<HotKey> hotKeys{{1, Qt::CTRL | Qt::Key_1}};
        const auto granted = adapters.hotKeySystem->setHotKeys(hotKeys, [](quint32) {});
        QCOMPARE(granted.result(), QList<quint32>());
    }
};

QTEST_GUILESS_MAIN(BackEndsTest)
#include "BackEndsTest.moc"
