#include "services/LaunchAtLoginService.h"

#include "support/FakeLoginItemSystem.h"

#include <QSignalSpy>
#include <QtTest>

using namespace trovell;

class LaunchAtLoginServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsOffWhileApprovalIsMissing();
    void clearsTheMessageAfterASuccess();
    void noticesForeignChangesAtTheNextChange();
};

void LaunchAtLoginServiceTest::showsOffWhileApprovalIsMissing()
{
    FakeLoginItemSystem system;
    system.registered = LoginItemStatus::requiresApproval;
    LaunchAtLoginService service(system);
    service.setEnabled(true);
    QVERIFY(!service.isEnabled() && !LaunchAtLoginService(system).isEnabled());
    QCOMPARE(service.errorMessage(), std::nullopt);
}

void LaunchAtLoginServiceTest::clearsTheMessageAfterASuccess()
{
    FakeLoginItemSystem system;
    system.failure = u"Permission denied"_qs;
    LaunchAtLoginService service(system);
    QStringList order;
    connect(&service, &LaunchAtLoginService::isEnabledChanged, this,
            [&] { order.append(u"state"_qs); });
    connect(&service, &LaunchAtLoginService::errorMessageChanged, this,
            [&] { order.append(u"message"_qs); });
    service.setEnabled(true);
    service.setEnabled(true);
    QCOMPARE(order, QStringList{u"message"_qs});
    system.failure.reset();
    service.setEnabled(true);
    QCOMPARE(order, (QStringList{u"message"_qs, u"state"_qs, u"message"_qs}));
    QCOMPARE(service.errorMessage(), std::nullopt);
}

void LaunchAtLoginServiceTest::noticesForeignChangesAtTheNextChange()
{
    FakeLoginItemSystem system;
    LaunchAtLoginService service(system);
    system.current = LoginItemStatus::enabled;
    QVERIFY(!service.isEnabled());
    system.failure = u"Permission denied"_qs;
    service.setEnabled(false);
    QVERIFY(service.isEnabled() && LaunchAtLoginService(system).isEnabled());
    QCOMPARE(service.errorMessage(), u"Permission denied"_qs);
}

QTEST_GUILESS_MAIN(LaunchAtLoginServiceTest)
#include "LaunchAtLoginServiceTest.moc"
