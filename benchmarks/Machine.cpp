#include "Machine.h"

#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>
#include <QThread>

#include <cstdlib>
#include <unistd.h>

namespace trovell::bench {

namespace {

QString processorName()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return QSysInfo::currentCpuArchitecture();
    const QRegularExpression line(QStringLiteral("model name\\s*: (.*)"));
    const auto match = line.match(QString::fromUtf8(file.readAll()));
    return match.hasMatch() ? match.captured(1).trimmed() : QSysInfo::currentCpuArchitecture();
}

bool isVirtual()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    return file.open(QIODevice::ReadOnly) && file.readAll().contains(" hypervisor");
}

double memoryGigabytes()
{
    return double(sysconf(_SC_PHYS_PAGES)) * double(sysconf(_SC_PAGESIZE)) / 1e9;
}

} // namespace

QString describeMachine()
{
    return QStringLiteral("%1 with %2 cores (%3) and %4 GB of memory, without a GPU in use; %5, "
                          "Linux %6")
        .arg(isVirtual() ? QStringLiteral("a virtual machine") : QStringLiteral("a machine"))
        .arg(QThread::idealThreadCount())
        .arg(processorName())
        .arg(memoryGigabytes(), 0, 'f', 0)
        .arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion());
}

double loadAverage()
{
    double averages[1] = {0};
    return getloadavg(averages, 1) == 1 ? averages[0] : 0;
}

} // namespace trovell::bench
