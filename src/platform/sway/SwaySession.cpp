// SPDX-License-Identifier: MIT

#include "platform/sway/SwaySession.h"

#include "platform/sway/SwayConnection.h"
#include "platform/x11/X11RootText.h"

#include <QDir>
#include <QFile>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

qint32 processServing(const QByteArray& socketPath)
{
    const SwayConnection connection(socketPath);
    return connection.isAlive() ? connection.serverProcess() : 0;
}

/// wl_display_connect(3): a name in the runtime folder, or a path.
QByteArray displaySocket(const QString& display, const QString& runtimeFolder)
{
    const QString name = display.isEmpty() ? u"wayland-0"_s : display;
    return QFile::encodeName(name.startsWith(u'/') ? name : runtimeFolder + u'/' + name);
}

} // namespace

QByteArray swaySocket(const SessionFacts& session)
{
    if (!session.isWayland())
        return {};
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const qint32 server = processServing(displaySocket(session.waylandDisplay, runtimeFolder));
    if (server == 0)
        return {};
    QByteArrayList candidates{qgetenv("SWAYSOCK")};
    // Its name holds the process, so a program started with old variables finds it too.
    const QStringList names =
        QDir(runtimeFolder)
            .entryList({u"sway-ipc.*.%1.sock"_s.arg(server)}, QDir::System | QDir::Files);
    for (const QString& name : names)
        candidates.append(QFile::encodeName(runtimeFolder + u'/' + name));
    for (const QByteArray& candidate : std::as_const(candidates)) {
        if (processServing(candidate) == server)
            return candidate;
    }
    return {};
}

QByteArray i3Socket(const SessionFacts& session)
{
    if (session.isWayland() || session.x11Display.isEmpty())
        return {};
    const QByteArray path = x11RootText(session.x11Display.toLocal8Bit(), "I3_SOCKET_PATH");
    return processServing(path) == 0 ? QByteArray() : path;
}

} // namespace trovell
