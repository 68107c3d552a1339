// SPDX-License-Identifier: MIT

#include "ProcessorTime.h"

#include <QFile>

#include <xcb/xcb.h>

#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace trovell::bench {

using namespace Qt::StringLiterals;

double ownProcessorSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

double processorSeconds(pid_t process)
{
    QFile file(u"/proc/%1/stat"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // proc(5): fields 14 and 15; the name in field 2 may hold spaces.
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) /
           double(sysconf(_SC_CLK_TCK));
}

pid_t serverProcess(const QByteArray& displayName)
{
    xcb_connection_t* connection = xcb_connect(displayName.constData(), nullptr);
    ucred peer = {};
    socklen_t size = sizeof peer;
    const bool isLocal =
        getsockopt(xcb_get_file_descriptor(connection), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0;
    xcb_disconnect(connection);
    return isLocal ? peer.pid : 0;
}

} // namespace trovell::bench
