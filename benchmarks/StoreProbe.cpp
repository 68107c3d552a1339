// SPDX-License-Identifier: MIT

#include "StoreProbe.h"

#include "Samples.h"
#include "StoreWorkload.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTextStream>

#include <fcntl.h>
#include <unistd.h>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

/// The number behind `name` in one of the process's files below /proc/self.
double processNumber(const char* file, const QByteArray& name)
{
    QFile source(u"/proc/self/"_s + QString::fromLatin1(file));
    if (!source.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = source.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(name))
            return line.mid(name.size()).simplified().split(' ').first().toDouble();
    }
    return 0;
}

struct Usage {
    double megabytes = processNumber("smaps_rollup", "Pss:") / 1e3;
    double megabytesRead = processNumber("io", "rchar:") / 1e6;
};

StoreCost costSince(const Usage& before, double seconds)
{
    const Usage now;
    return {seconds, now.megabytes - before.megabytes, now.megabytesRead - before.megabytesRead};
}

/// What the sidebar shows.
qint64 listWorkspaces(const StoreContext& context)
{
    qint64 shown = 0;
    const QList<TrovellWorkspace*> workspaces = context.workspaces();
    for (const TrovellWorkspace* workspace : workspaces)
        shown += workspace->name().size() + workspace->itemCount() + workspace->placementCount();
    return shown;
}

qsizetype load(const TrovellWorkspace& workspace)
{
    return workspace.sortedItems().size() + workspace.sortedPlacements().size();
}

void print(const StoreCost& cost)
{
    QTextStream(stdout) << cost.seconds << ' ' << cost.megabytes << ' ' << cost.megabytesRead
                        << '\n';
}

/// Drops a file from the system's cache, once the disk has it.
void makeCold(const QString& path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    ::fsync(file);
    ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    ::close(file);
}

StoreCost parseCost(const QByteArray& line)
{
    const QList<QByteArray> numbers = line.split(' ');
    return {numbers.value(0).toDouble(), numbers.value(1).toDouble(), numbers.value(2).toDouble()};
}

} // namespace

std::optional<StoreProbe> probeStore(const QString& folder, bool isCold)
{
    if (isCold) {
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files);
        for (const QFileInfo& file : files)
            makeCold(file.filePath());
    }
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {u"--probe-store"_s, folder});
    if (!child.waitForFinished() || child.exitCode() != 0)
        return std::nullopt;
    const QList<QByteArray> lines = child.readAllStandardOutput().split('\n');
    return StoreProbe{.listing = parseCost(lines.value(0)),
                      .secondsToList = lines.value(1).toDouble(),
                      .everything = parseCost(lines.value(2)),
                      .secondsToSelectOne = lines.value(3).toDouble()};
}

int runStoreProbe(const QString& folder)
{
    const Usage before;
    Expected<std::unique_ptr<WorkspaceStore>, StoreError> store;
    qint64 shown = 0;
    const double secondsToOpen = secondsOf([&] { store = openStore(folder); });
    if (!store)
        return 1;
    const double secondsToList =
        secondsOf([&] { shown = listWorkspaces((*store)->mainContext()); });
    print(costSince(before, secondsToOpen + secondsToList));
    QTextStream(stdout) << secondsToList << '\n';
    const QList<TrovellWorkspace*> workspaces = (*store)->mainContext().workspaces();
    qsizetype loaded = 0;
    const double secondsToSelectOne =
        secondsOf([&] { loaded += load(*workspaces.at(workspaces.size() / 2)); });
    const double secondsToLoad = secondsOf([&] {
        loaded = 0;
        for (const TrovellWorkspace* workspace : workspaces)
            loaded += load(*workspace);
    });
    print(costSince(before, secondsToOpen + secondsToList + secondsToSelectOne + secondsToLoad));
    QTextStream(stdout) << secondsToSelectOne << '\n';
    return shown > 0 && loaded == workspaces.size() * (itemsPerWorkspace + placementsPerWorkspace)
               ? 0
               : 1;
}

} // namespace trovell::bench
