#include "services/update/UpdateController.h"

#include <QSignalSpy>
#include <QTest>

using namespace trovell;

class UpdateControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void needsBothAddressAndKey_data();
    void needsBothAddressAndKey();
    void startsACheck();
};

void UpdateControllerTest::needsBothAddressAndKey_data()
{
    QTest::addColumn<bool>("hasAddress");
    QTest::addColumn<QString>("key"); // null: absent
    QTest::newRow("neither") << false << QString();
    QTest::newRow("no address") << false << u"key"_qs;
    QTest::newRow("no key") << true << QString();
    QTest::newRow("empty key") << true << u""_qs;
}

void UpdateControllerTest::needsBothAddressAndKey()
{
    QFETCH(bool, hasAddress);
    QFETCH(QString, key);
    UpdateController controller(
        hasAddress ? std::optional(QUrl(u"https://updates.example/feed.xml"_qs)) : std::nullopt,
        key.isNull() ? std::nullopt : std::optional(key), {});
    QSignalSpy changes(&controller, &UpdateController::statusMessageChanged);
    QVERIFY(!controller.isConfigured());
    QVERIFY(!controller.controller());
    QVERIFY(!controller.statusMessage());
    controller.checkForUpdates();
    controller.checkForUpdates();
    QCOMPARE(
        controller.statusMessage(),
        u"Update checks will be available after the Sparkle feed and EdDSA key are configured."_qs);
    QCOMPARE(changes.size(), 1);
}

/// The key is not looked at before it is used.
void UpdateControllerTest::startsACheck()
{
    UpdateController controller(QUrl(u"https://updates.example/feed.xml"_qs), u"key"_qs, {});
    QVERIFY(controller.isConfigured());
    QCOMPARE(controller.controller()->state(), UpdateState());
    QSignalSpy requests(controller.controller(), &Updater::checkRequested);
    controller.checkForUpdates();
    QCOMPARE(requests.size(), 1);
    QCOMPARE(controller.controller()->state().error, UpdateError::publicKeyMalformed);
    QVERIFY(!controller.statusMessage());
}

QTEST_GUILESS_MAIN(UpdateControllerTest)
#include "UpdateControllerTest.moc"
