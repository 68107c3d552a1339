#include "MatchingBenchmark.h"

#include "Samples.h"
#include "Titles.h"
#include "windows/WindowMatching.h"

namespace trovell::bench {

namespace {

constexpr int windowCount = 100;
constexpr int rounds = 25;
constexpr double budgetSeconds = 0.005;

struct Workload {
    QString name;
    QList<WindowMatchRequest> requests;
    QList<WindowMatchCandidate> candidates;
    qsizetype expectedPairs = windowCount;
};

using Title = QString (*)(int index);

/// The windows come in the opposite order of the placements, so that no index helps.
Workload makeWorkload(const QString& name, Title saved, Title live, int firstLive)
{
    const QString role = QStringLiteral("AXWindow");
    const QString subrole = QStringLiteral("AXStandardWindow");
    Workload workload{name, {}, {}};
    for (int index = 0; index < windowCount; ++index) {
        workload.requests.append({QUuid::createUuid(), saved(index), role, subrole, index});
        const int reversed = windowCount - 1 - index;
        workload.candidates.append({index, live(firstLive + reversed), role, subrole});
    }
    return workload;
}

QList<Workload> makeWorkloads()
{
    Workload unrelated =
        makeWorkload(QStringLiteral("titles of %1 characters in several scripts, none of which "
                                    "fits (worst case)")
                         .arg(longTitle(0).size()),
                     &longTitle, &longTitle, windowCount);
    unrelated.expectedPairs = 0;
    return {makeWorkload(QStringLiteral("titles as applications give them"), &realisticTitle,
                         &realisticTitle, 0),
            makeWorkload(QStringLiteral("the same, every document a different one"),
                         &realisticTitle, &realisticTitle, windowCount),
            unrelated,
            makeWorkload(QStringLiteral("titles of 2,000 equal letters (worst case)"),
                         &repetitiveTitle, &repetitiveTitle, 0)};
}

} // namespace

void measureMatching(Report& report)
{
    report.beginSection(
        QStringLiteral("Matching"),
        QStringLiteral(
            "100 placements against 100 windows of one application in the opposite "
            "order: processor time of the one thread. Medians of %1 rounds, quartiles in brackets.")
            .arg(rounds));
    const QList<Workload> workloads = makeWorkloads();
    std::vector<Contestant> contestants;
    for (const Workload& workload : workloads) {
        const qsizetype pairs = assignWindows(workload.requests, workload.candidates).size();
        if (pairs < workload.expectedPairs || (workload.expectedPairs == 0 && pairs != 0))
            report.fail(QStringLiteral("Matching, %1: %2 pairs").arg(workload.name).arg(pairs));
        contestants.push_back([&workload] {
            return processorSecondsPerCall(
                [&workload] { (void)assignWindows(workload.requests, workload.candidates); });
        });
    }
    const std::vector<Samples> samples = interleave(rounds, contestants);
    for (size_t index = 0; index < samples.size(); ++index)
        report.add({.what = QStringLiteral("Matching, ") + workloads[qsizetype(index)].name,
                    .trovell = formatSpread(samples[index]),
                    .budget = QStringLiteral("< 5 ms"),
                    .isMet = median(samples[index]) < budgetSeconds});
}

} // namespace trovell::bench
