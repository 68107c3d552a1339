#include "platform/x11/X11Applications.h"

#include <QCoreApplication>
#include <QTest>

using namespace trovell;

namespace {

IdentifiedWindow window(WindowHandle handle, qint32 process, const QString& identifier)
{
    return {handle, process, true, true, {identifier, identifier + u" name"_qs, {}}};
}

} // namespace

class X11ApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void windowsWithoutAnyNameGoByTheirProcess();
    void panelsRunWithoutWindows();
    void withoutDesktopFileTheClassIsTheIdentifier();
};

void X11ApplicationsTest::windowsWithoutAnyNameGoByTheirProcess()
{
    const auto unnamed = groupWindows({window(1, 500, {}), window(2, 600, {}), window(3, 500, {})});
    QCOMPARE(unnamed.size(), 2);
    QVERIFY(!unnamed[0].bundleIdentifier && !unnamed[0].bundleURL);
    QCOMPARE(unnamed[0].windows, (QList<WindowHandle>{1, 3}));
}

void X11ApplicationsTest::panelsRunWithoutWindows()
{
    IdentifiedWindow panel = window(11, 500, u"panel"_qs);
    panel.isWindow = panel.isOrdinary = false;
    IdentifiedWindow splash = window(12, 600, u"starting"_qs);
    splash.isOrdinary = false;
    const auto applications = groupWindows({panel, splash});
    QCOMPARE(applications.size(), 2);
    QVERIFY(!applications[0].isRegular);
    QVERIFY(applications[0].windows.isEmpty());
    QVERIFY(!applications[1].isRegular);
    QCOMPARE(applications[1].windows.size(), 1);
    // One ordinary window among the others is enough.
    QVERIFY(groupWindows({panel, window(13, 700, u"panel"_qs)}).first().isRegular);
}

void X11ApplicationsTest::withoutDesktopFileTheClassIsTheIdentifier()
{
    const auto self = static_cast<qint32>(QCoreApplication::applicationPid());
    const auto identity = identityWithoutDesktopFile({self, u"Class"_qs, u"instance"_qs, {}});
    QCOMPARE(identity.bundleIdentifier, u"Class"_qs);
    QCOMPARE(identity.name, u"Class"_qs);
    QCOMPARE(identity.url, QUrl::fromLocalFile(QCoreApplication::applicationFilePath()));
    QCOMPARE(identityWithoutDesktopFile({0, {}, u"instance"_qs, {}}).bundleIdentifier,
             u"instance"_qs);
    QCOMPARE(identityWithoutDesktopFile({self, {}, {}, {}}).bundleIdentifier,
             u"X11ApplicationsTest"_qs);
    const ApplicationIdentity nothing = identityWithoutDesktopFile({0, {}, {}, {}});
    QCOMPARE(nothing, ApplicationIdentity());
}

QTEST_GUILESS_MAIN(X11ApplicationsTest)
#include "X11ApplicationsTest.moc"
