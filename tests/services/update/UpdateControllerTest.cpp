#include "services/update/UpdateController.h"

#include <QTest>

using namespace trovell;

class UpdateControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void needsBothAddressAndKey();
    void startsACheck();
};

void UpdateControllerTest::needsBothAddressAndKey()
{
    using Key = std::optional<QString>;
    const std::optional<QUrl> address(u"https://updates.example/feed.xml"_qs);
    const std::pair<std::optional<QUrl>, Key> incomplete[]{
        {std::nullopt, u"key"_qs}, {address, std::nullopt}, {address, u""_qs}};
    for (const auto& [feed, key] : incomplete) {
        UpdateController controller(feed, key, {});
        QVERIFY(!controller.isConfigured() && !controller.controller());
        QVERIFY(!controller.statusMessage());
        controller.checkForUpdates();
        QVERIFY(controller.statusMessage()->contains(u"EdDSA key"));
    }
}

/// The key is not looked at before it is used.
void UpdateControllerTest::startsACheck()
{
    UpdateController controller(QUrl(u"https://updates.example/feed.xml"_qs), u"key"_qs, {});
    QVERIFY(controller.isConfigured());
    QCOMPARE(controller.controller()->state(), UpdateState());
    controller.checkForUpdates();
    QCOMPARE(controller.controller()->state().error, UpdateError::publicKeyMalformed);
    QVERIFY(!controller.statusMessage());
}

QTEST_GUILESS_MAIN(UpdateControllerTest)
#include "UpdateControllerTest.moc"
