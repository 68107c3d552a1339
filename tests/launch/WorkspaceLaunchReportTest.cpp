#include "launch/WorkspaceLaunchReport.h"

#include <QtTest>

using namespace trovell;
using enum LaunchResultKind;

class WorkspaceLaunchReportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void summarises_data();
    void summarises();
    void putsNumbersIntoTranslations();
};

void WorkspaceLaunchReportTest::summarises_data()
{
    QTest::addColumn<QList<LaunchResultKind>>("kinds");
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<qint64>("unresolved");
    QTest::addColumn<qint64>("skipped");
    using Kinds = QList<LaunchResultKind>;

    QTest::newRow("nothing") << Kinds{} << u"Completed 0 actions successfully."_qs << qint64(0)
                             << qint64(0);
    QTest::newRow("windows") << Kinds{launched, alreadyRunning, opened, restored, restored}
                             << u"Completed 5 actions and restored 2 windows."_qs << qint64(0)
                             << qint64(0);
    QTest::newRow("missing") << Kinds{opened, opened, skippedMissingResource}
                             << u"Completed 2 actions. Review 1 skipped or failed items."_qs
                             << qint64(1) << qint64(1);
    QTest::newRow("both")
        << Kinds{launched, restored, timedOut}
        << u"Completed 2 actions. 1 windows restored. Review 1 skipped or failed items."_qs
        << qint64(1) << qint64(1);
    QTest::newRow("no permission")
        << Kinds{skippedNoPermission}
        << u"Completed 0 actions. Review 1 skipped or failed items."_qs << qint64(0) << qint64(1);
    QTest::newRow("failed") << Kinds{failed, windowNotFound}
                            << u"Completed 0 actions. Review 2 skipped or failed items."_qs
                            << qint64(2) << qint64(1);
}

void WorkspaceLaunchReportTest::summarises()
{
    QFETCH(QList<LaunchResultKind>, kinds);
    WorkspaceLaunchReport report;
    for (const LaunchResultKind kind : kinds)
        report.results.append(makeLaunchResult(QStringLiteral("x"), kind));
    const LaunchSummary summary = report.summary();
    QTEST(summary.formatted(summary.key), "sentence");
    QTEST(report.unresolvedCount(), "unresolved");
    QTEST(report.skippedCount(), "skipped");
}

void WorkspaceLaunchReportTest::putsNumbersIntoTranslations()
{
    const LaunchSummary summary{u"%lld of %lld"_qs, {12, -3}};
    QCOMPARE(summary.formatted(u"%lld%lld%lld"_qs), u"12-3%lld"_qs);
    QCOMPARE(summary.formatted(u"keine Zahl"_qs), u"keine Zahl"_qs);
}

QTEST_GUILESS_MAIN(WorkspaceLaunchReportTest)
#include "WorkspaceLaunchReportTest.moc"
