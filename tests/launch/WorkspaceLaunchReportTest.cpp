#include "launch/WorkspaceLaunchReport.h"

#include <QtTest>

using namespace trovell;
using enum LaunchResultKind;

class WorkspaceLaunchReportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void summarises();
    void putsNumbersIntoTranslations();
};

void WorkspaceLaunchReportTest::summarises()
{
    const auto verify = [](const QList<LaunchResultKind>& kinds, const QString& sentence,
                           qint64 unresolved = 0, qint64 skipped = 0) {
        WorkspaceLaunchReport report;
        for (const LaunchResultKind kind : kinds)
            report.results.append(makeLaunchResult(QStringLiteral("x"), kind));
        const LaunchSummary summary = report.summary();
        QCOMPARE(summary.formatted(summary.key), sentence);
        QCOMPARE(report.unresolvedCount(), unresolved);
        QCOMPARE(report.skippedCount(), skipped);
    };
    verify({}, u"Completed 0 actions successfully."_qs);
    verify({launched, alreadyRunning, opened, restored, restored},
           u"Completed 5 actions and restored 2 windows."_qs);
    verify({opened, opened, skippedMissingResource},
           u"Completed 2 actions. Review 1 skipped or failed items."_qs, 1, 1);
    verify({launched, restored, timedOut},
           u"Completed 2 actions. 1 windows restored. Review 1 skipped or failed items."_qs, 1, 1);
    verify({skippedNoPermission}, u"Completed 0 actions. Review 1 skipped or failed items."_qs, 0,
           1);
    verify({failed, windowNotFound}, u"Completed 0 actions. Review 2 skipped or failed items."_qs,
           2, 1);
}

void WorkspaceLaunchReportTest::putsNumbersIntoTranslations()
{
    const LaunchSummary summary{u"%lld of %lld"_qs, {12, -3}};
    QCOMPARE(summary.formatted(u"%lld%lld%lld"_qs), u"12-3%lld"_qs);
    QCOMPARE(summary.formatted(u"keine Zahl"_qs), u"keine Zahl"_qs);
}

QTEST_GUILESS_MAIN(WorkspaceLaunchReportTest)
#include "WorkspaceLaunchReportTest.moc"
