// SPDX-License-Identifier: MIT

#include "lab/PrivateSession.h"

#include "lab/PrivateBus.h"

namespace trovell::lab {

using namespace Qt::StringLiterals;

namespace {

// Renamed at the end, so that a test never reads half a record.
const QByteArray recorderScript = R"(#!/bin/sh
streams=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2)
{
    echo "$$"
    cut -d ' ' -f 6 /proc/$$/stat
    echo "$streams"
    echo "$GIO_LAUNCHED_DESKTOP_FILE"
    echo "$DESKTOP_STARTUP_ID"
    pwd
    echo "$NOTIFY_SOCKET"
    for argument; do echo "$argument"; done
} > "$0.new"
mv "$0.new" "$0.record"
)";

} // namespace

PrivateSession::PrivateSession()
{
    const auto set = [this](const char* variable, const char* folder) {
        QDir().mkpath(path(QString::fromLatin1(folder)));
        qputenv(variable, QFile::encodeName(path(QString::fromLatin1(folder))));
    };
    set("HOME", ".");
    set("XDG_DATA_HOME", "data");
    set("XDG_DATA_DIRS", "share");
    set("XDG_CONFIG_HOME", "config");
    set("XDG_CONFIG_DIRS", "xdg");
    set("XDG_CACHE_HOME", "cache");
    set("XDG_RUNTIME_DIR", "run");
    QDir().mkpath(path(u"data/applications"_s));
    QDir().mkpath(path(u"share/applications"_s));
    // Kinds of files are told as on the machine; only its applications are not there.
    QFile::link(u"/usr/share/mime"_s, path(u"share/mime"_s));
    qunsetenv("XDG_CURRENT_DESKTOP");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

PrivateSession::~PrivateSession()
{
    m_bus.kill();
    m_bus.waitForFinished();
}

QString PrivateSession::write(const QString& name, const QByteArray& content) const
{
    return writeFile(path(name), content);
}

QString PrivateSession::addDesktopFile(const QString& id, const QByteArray& lines) const
{
    return write(u"data/applications/%1.desktop"_s.arg(id),
                 "[Desktop Entry]\nType=Application\nName=" + id.toUtf8() + '\n' + lines + '\n');
}

QString PrivateSession::addRecorder(const QString& name) const
{
    return writeProgram(path(u"bin/"_s + name), recorderScript);
}

std::optional<RecordedStart> PrivateSession::recorded(const QString& recorder) const
{
    QStringList lines = QString::fromUtf8(readFile(recorder + u".record"_s)).split(u'\n');
    lines.removeLast();
    if (lines.size() < 9)
        return {};
    return RecordedStart{lines.mid(9),
                         lines[0].toLongLong(),
                         lines[1].toLongLong(),
                         lines.mid(2, 3),
                         lines[5],
                         lines[6],
                         lines[7],
                         lines[8]};
}

void PrivateSession::setDefault(const QString& mimeType, const QString& id)
{
    m_defaults += mimeType.toUtf8() + '=' + id.toUtf8() + ".desktop\n";
    write(u"config/mimeapps.list"_s, "[Default Applications]\n" + m_defaults);
}

bool PrivateSession::startBus()
{
    m_bus.start(u"dbus-daemon"_s, {privateBus(path(u"bus.conf"_s), path(u"run/bus"_s),
                                              path(u"data/dbus-1/services"_s)),
                                   u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s});
    if (!m_bus.waitForStarted() || !m_bus.waitForReadyRead())
        return false;
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
    return true;
}

} // namespace trovell::lab
