// SPDX-License-Identifier: MIT

#include "Machine.h"

#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>
#include <QThread>

#include <cstdlib>
#include <unistd.h>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

QString processorName()
{
    QFile file(u"/proc/cpuinfo"_s);
    if (!file.open(QIODevice::ReadOnly))
        return QSysInfo::currentCpuArchitecture();
    const QRegularExpression line(u"model name\\s*: (.*)"_s);
    const auto match = line.match(QString::fromUtf8(file.readAll()));
    return match.hasMatch() ? match.captured(1).trimmed() : QSysInfo::currentCpuArchitecture();
}

bool isVirtual()
{
    QFile file(u"/proc/cpuinfo"_s);
    return file.open(QIODevice::ReadOnly) && file.readAll().contains(" hypervisor");
}

double memoryGigabytes()
{
    return double(sysconf(_SC_PHYS_PAGES)) * double(sysconf(_SC_PAGESIZE)) / 1e9;
}

} // namespace

QString describeMachine()
{
    return u"%1 with %2 cores (%3) and %4 GB of memory, without a GPU in use; %5, "
           "Linux %6"_s.arg(isVirtual() ? u"a virtual machine"_s : u"a machine"_s)
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
