// SPDX-License-Identifier: MIT
//
// What the settings do with it: see SettingsViewTest.
#include "services/LaunchAtLoginService.h"

#include "support/FakeLoginItemSystem.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

class LaunchAtLoginServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noticesForeignChangesAtTheNextChange()
    {
        FakeLoginItemSystem system;
        LaunchAtLoginService service(system);
        const QSignalSpy states(&service, &LaunchAtLoginService::isEnabledChanged);
        const QSignalSpy messages(&service, &LaunchAtLoginService::errorMessageChanged);
        system.current = LoginItemStatus::enabled;
        QVERIFY(!service.isEnabled());
        system.failure = u"Permission denied"_s;
        service.setEnabled(false);
        QVERIFY(service.isEnabled() && LaunchAtLoginService(system).isEnabled());
        QCOMPARE(service.errorMessage(), u"Permission denied"_s);

        // Each signal comes only when there is something new.
        service.setEnabled(false);
        system.failure.reset();
        service.setEnabled(false);
        QCOMPARE(states.size(), 2);
        QCOMPARE(messages.size(), 2);
    }
};

QTEST_GUILESS_MAIN(LaunchAtLoginServiceTest)
#include "LaunchAtLoginServiceTest.moc"
