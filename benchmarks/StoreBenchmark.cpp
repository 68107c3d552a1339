// SPDX-License-Identifier: MIT

#include "StoreBenchmark.h"

#include "Samples.h"
#include "StoreProbe.h"
#include "StoreWorkload.h"

#include "model/StoreFiles.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int largeCount = 1000;
constexpr int smallCount = 10;
constexpr int probeRounds = 11;
constexpr int saveRounds = 101;

using Edit = void (*)(StoreContext& context, TrovellWorkspace& workspace, int round);

/// What a start and a small correction write.
void editALittle(StoreContext& /*context*/, TrovellWorkspace& workspace, int round)
{
    workspace.setName(u"Edited %1"_s.arg(round));
    workspace.setUpdatedAt(QDateTime::currentDateTimeUtc());
    workspace.sortedItems().first()->setDisplayName(u"Item %1"_s.arg(round));
    workspace.sortedPlacements().first()->setWindowTitleHint(u"T %1"_s.arg(round));
}

/// What taking the layout anew writes.
void replacePlacements(StoreContext& context, TrovellWorkspace& workspace, int round)
{
    const QList<WindowPlacement*> placements = workspace.sortedPlacements();
    for (WindowPlacement* placement : placements)
        context.remove(*placement);
    for (int index = 0; index < placementsPerWorkspace; ++index)
        workspace.appendPlacement(makeSamplePlacement(index));
    workspace.setUpdatedAt(QDateTime::currentDateTimeUtc().addMSecs(round));
}

/// Edits another workspace every time and measures the save alone.
class SavedStore {
public:
    SavedStore(const QString& folder, bool isDurable) : m_store(openStore(folder, isDurable)) {}

    bool isOpen() const { return m_store.has_value(); }
    bool hasFailed() const { return m_hasFailed; }

    double save(Edit edit)
    {
        StoreContext& context = (*m_store)->mainContext();
        const QList<TrovellWorkspace*> workspaces = context.workspaces();
        constexpr int stride = 37; // spreads over the file
        ++m_round;
        edit(context, *workspaces.at(m_round * stride % workspaces.size()), m_round);
        const double seconds = secondsOf([&] { m_hasFailed |= !context.save(); });
        // Destroys what was removed.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return seconds;
    }

private:
    Expected<std::unique_ptr<WorkspaceStore>, StoreError> m_store;
    int m_round = 0;
    bool m_hasFailed = false;
};

struct Stores {
    QString large;
    QString small;
};

struct Probes {
    Samples listingSeconds, listingMegabytes, listingMegabytesRead;
    Samples allSeconds, allMegabytes, allMegabytesRead;
    Samples listAloneSeconds, selectingSeconds;

    double add(const std::optional<StoreProbe>& probe)
    {
        if (!probe)
            return 0;
        listingSeconds.push_back(probe->listing.seconds);
        listingMegabytes.push_back(probe->listing.megabytes);
        listingMegabytesRead.push_back(probe->listing.megabytesRead);
        allSeconds.push_back(probe->everything.seconds);
        allMegabytes.push_back(probe->everything.megabytes);
        allMegabytesRead.push_back(probe->everything.megabytesRead);
        listAloneSeconds.push_back(probe->secondsToList);
        selectingSeconds.push_back(probe->secondsToSelectOne);
        return probe->listing.seconds;
    }
};

QString megabytes(const Samples& samples)
{
    return u"%1 MB"_s.arg(median(samples), 0, 'f', 1);
}

void reportOpening(Report& report, const Probes& large, const Probes& cold, const Probes& small)
{
    const QString peer = u"10 workspaces: "_s;
    report.add({.what = u"Opening and listing"_s,
                .trovell = formatSpread(large.listingSeconds),
                .peer = peer + formatSpread(small.listingSeconds),
                .ratio = formatRatio(medianRatio(large.listingSeconds, small.listingSeconds)),
                .budget = u"< 400 ms"_s,
                .isMet = median(large.listingSeconds) < 0.4});
    report.add({.what = u"The same with the file not in the system's cache"_s,
                .trovell = formatSpread(cold.listingSeconds),
                .budget = u"< 400 ms"_s,
                .isMet = median(cold.listingSeconds) < 0.4});
    report.add({.what = u"Listing names and counts, of an open store"_s,
                .trovell = formatSpread(large.listAloneSeconds),
                .peer = peer + formatSpread(small.listAloneSeconds)});
    report.add({.what = u"Selecting a workspace: reading its items and placements"_s,
                .trovell = formatSpread(large.selectingSeconds),
                .peer = peer + formatSpread(small.selectingSeconds),
                .ratio = formatRatio(medianRatio(large.selectingSeconds, small.selectingSeconds))});
    report.add({.what = u"Opening and loading everything"_s,
                .trovell = formatSpread(large.allSeconds),
                .peer = u"listing: "_s + formatSpread(large.listingSeconds),
                .ratio = formatRatio(medianRatio(large.allSeconds, large.listingSeconds))});
}

void reportMemory(Report& report, const Probes& large)
{
    report.add({.what = u"Memory with everything loaded"_s,
                .trovell = megabytes(large.allMegabytes),
                .budget = u"< 120 MB"_s,
                .isMet = median(large.allMegabytes) < 120});
    const double share = median(large.listingMegabytes) / median(large.allMegabytes);
    report.add({.what = u"Memory after listing"_s,
                .trovell = megabytes(large.listingMegabytes),
                .peer = u"everything: "_s + megabytes(large.allMegabytes),
                .ratio = formatRatio(share),
                .budget = u"no items loaded: < 0.25×"_s,
                .isMet = share < 0.25});
    report.add({.what = u"Read from the file by opening, which verifies it, and listing"_s,
                .trovell = megabytes(large.listingMegabytesRead),
                .peer = u"everything: "_s + megabytes(large.allMegabytesRead)});
}

void measureOpening(Report& report, const Stores& stores)
{
    Probes large;
    Probes cold;
    Probes small;
    (void)interleave(probeRounds, {[&] { return large.add(probeStore(stores.large)); },
                                   [&] { return cold.add(probeStore(stores.large, true)); },
                                   [&] { return small.add(probeStore(stores.small)); }});
    constexpr size_t wanted = probeRounds + 1;
    if (large.listingSeconds.size() + cold.listingSeconds.size() + small.listingSeconds.size() !=
        3 * wanted)
        report.fail(u"Some probes of the store"_s);
    reportOpening(report, large, cold, small);
    reportMemory(report, large);
}

void measureSaving(Report& report, const Stores& stores, bool isDurable)
{
    SavedStore large(stores.large, isDurable);
    SavedStore small(stores.small, isDurable);
    if (!large.isOpen() || !small.isOpen())
        return report.fail(u"Opening the stores to save"_s);
    const auto measure = [&](const QString& what, Edit edit) {
        const auto samples = interleave(
            saveRounds, {[&] { return large.save(edit); }, [&] { return small.save(edit); }});
        const double ratio = medianRatio(samples[0], samples[1]);
        Row row{.what = what +
                        (isDurable ? u", with the disk's sync"_s : u", without the disk's sync"_s),
                .trovell = formatSpread(samples[0]),
                .peer = u"10 workspaces: "_s + formatSpread(samples[1]),
                .ratio = formatRatio(ratio)};
        if (!isDurable) {
            row.budget = u"≤ 1.5×, < 10 ms"_s;
            row.isMet = ratio <= 1.5 && median(samples[0]) < 0.01;
        }
        report.add(row);
    };
    measure(u"Saving one edited workspace"_s, &editALittle);
    measure(u"Saving 20 replaced placements"_s, &replacePlacements);
    if (large.hasFailed() || small.hasFailed())
        report.fail(u"Some saves"_s);
}

/// Opening a store in the first form of the schema for the first time.
void measureMigration(Report& report, const Stores& stores, const QString& formerFolder)
{
    if (!createVersion1Store(formerFolder, stores.large))
        return report.fail(u"Creating a store to migrate"_s);
    const StoreFiles former(formerFolder);
    Samples seconds;
    for (int round = 0; round < probeRounds; ++round) {
        const QTemporaryDir folder(formerFolder + u"-XXXXXX"_s);
        QFile::copy(former.storePath(), StoreFiles(folder.path()).storePath());
        bool isOpen = false;
        seconds.push_back(secondsOf([&] { isOpen = openStore(folder.path()).has_value(); }));
        if (!isOpen)
            return report.fail(u"Migrating a store"_s);
    }
    report.add({.what = u"Opening a store of an older version, which migrates it"_s,
                .trovell = formatSpread(seconds),
                .budget = u"< 1 s"_s,
                .isMet = median(seconds) < 1});
}

} // namespace

void measureStore(Report& report)
{
    report.beginSection(
        u"Store"_s, u"A store of 1,000 workspaces with 20 items and 20 placements each beside one "
                    "of 10 workspaces, in turn. Opening: %1 fresh processes each, memory as the "
                    "growth of the process's proportional set size. Saving: %2 saves, each of "
                    "another workspace. Medians, quartiles in brackets."_s.arg(probeRounds)
                        .arg(saveRounds));
    // Beside the program, where it is on a disk; temporary folders often are not.
    const QTemporaryDir folder(QCoreApplication::applicationDirPath() + u"/store-XXXXXX"_s);
    const Stores stores{folder.filePath(u"large"_s), folder.filePath(u"small"_s)};
    if (!createStore(stores.large, largeCount) || !createStore(stores.small, smallCount))
        return report.fail(u"Creating the stores"_s);
    measureOpening(report, stores);
    measureMigration(report, stores, folder.filePath(u"former"_s));
    measureSaving(report, stores, false);
    measureSaving(report, stores, true);
}

} // namespace trovell::bench
