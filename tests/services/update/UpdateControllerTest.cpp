// SPDX-License-Identifier: MIT

#include "services/update/UpdateController.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

class UpdateControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void needsBothAddressAndKey()
    {
        const QUrl address(u"https://updates.example/feed.xml"_s);
        const std::pair<std::optional<QUrl>, std::optional<QString>> incomplete[]{
            {std::nullopt, u"key"_s}, {address, std::nullopt}, {address, u""_s}};
        for (const auto& [feed, key] : incomplete) {
            UpdateController controller(feed, key, {});
            QVERIFY(!controller.isConfigured() && !controller.controller());
            QVERIFY(controller.statusMessage().isEmpty());
            controller.checkForUpdates();
            QVERIFY(controller.statusMessage().productText().contains(u"EdDSA key"));
        }
    }

    /// The key is not looked at before it is used.
    void startsACheck()
    {
        UpdateController controller(QUrl(u"https://updates.example/feed.xml"_s), u"key"_s, {});
        QVERIFY(controller.isConfigured());
        QCOMPARE(controller.controller()->state(), UpdateState());
        controller.checkForUpdates();
        QCOMPARE(controller.controller()->state().error, UpdateError::publicKeyMalformed);
        QVERIFY(controller.statusMessage().isEmpty());
    }
};

QTEST_GUILESS_MAIN(UpdateControllerTest)
#include "UpdateControllerTest.moc"
