// SPDX-License-Identifier: MIT

#include "MatchingBenchmark.h"

#include "Samples.h"
#include "Titles.h"
#include "windows/WindowMatching.h"

namespace trovell::bench {

using namespace Qt::StringLiterals;

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
    const QString role = u"AXWindow"_s;
    const QString subrole = u"AXStandardWindow"_s;
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
    Workload unrelated = makeWorkload(u"titles of %1 characters in several scripts, none of which "
                                      "fits (worst case)"_s.arg(longTitle(0).size()),
                                      &longTitle, &longTitle, windowCount);
    unrelated.expectedPairs = 0;
    return {
        makeWorkload(u"titles as applications give them"_s, &realisticTitle, &realisticTitle, 0),
        makeWorkload(u"the same, every document a different one"_s, &realisticTitle,
                     &realisticTitle, windowCount),
        unrelated,
        makeWorkload(u"titles of 2,000 equal letters (worst case)"_s, &repetitiveTitle,
                     &repetitiveTitle, 0)};
}

} // namespace

void measureMatching(Report& report)
{
    report.beginSection(
        u"Matching"_s,
        u"100 placements against 100 windows of one application in the opposite "
        "order: processor time of the one thread. Medians of %1 rounds, quartiles in brackets."_s
            .arg(rounds));
    const QList<Workload> workloads = makeWorkloads();
    std::vector<Contestant> contestants;
    for (const Workload& workload : workloads) {
        const qsizetype pairs = assignWindows(workload.requests, workload.candidates).size();
        if (pairs < workload.expectedPairs || (workload.expectedPairs == 0 && pairs != 0))
            report.fail(u"Matching, %1: %2 pairs"_s.arg(workload.name).arg(pairs));
        contestants.push_back([&workload] {
            return processorSecondsPerCall(
                [&workload] { (void)assignWindows(workload.requests, workload.candidates); });
        });
    }
    const std::vector<Samples> samples = interleave(rounds, contestants);
    for (size_t index = 0; index < samples.size(); ++index)
        report.add({.what = u"Matching, "_s + workloads[qsizetype(index)].name,
                    .trovell = formatSpread(samples[index]),
                    .budget = u"< 5 ms"_s,
                    .isMet = median(samples[index]) < budgetSeconds});
}

} // namespace trovell::bench
