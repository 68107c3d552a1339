// SPDX-License-Identifier: MIT

#include "platform/freedesktop/ProcessFacts.h"

#include <QFile>
#include <QList>
#include <QString>

#include <filesystem>
#include <string>
#include <system_error>

namespace trovell {

namespace {

QByteArray readExecutable(const std::string& folder)
{
    std::error_code error;
    const auto target = std::filesystem::read_symlink(folder + "/exe", error);
    QByteArray path = QByteArray::fromStdString(target.string());
    // The file was replaced while the program ran: it has just been updated.
    const QByteArray deleted = " (deleted)";
    if (path.endsWith(deleted))
        path.chop(deleted.size());
    return path;
}

/// Child processes inherit both variables; the second one says whom the first one is about.
QByteArray readLaunchedDesktopFile(const std::string& folder, qint32 processIdentifier)
{
    QFile file(QString::fromStdString(folder + "/environ"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray fileKey = "GIO_LAUNCHED_DESKTOP_FILE=";
    const QByteArray processKey = "GIO_LAUNCHED_DESKTOP_FILE_PID=";
    QByteArray desktopFile;
    bool isAboutThisProcess = false;
    const QList<QByteArray> variables = file.readAll().split('\0');
    for (const QByteArray& variable : variables) {
        if (variable.startsWith(fileKey))
            desktopFile = variable.mid(fileKey.size());
        else if (variable.startsWith(processKey))
            isAboutThisProcess = variable.mid(processKey.size()).toInt() == processIdentifier;
    }
    return isAboutThisProcess ? desktopFile : QByteArray();
}

} // namespace

ProcessFacts readProcessFacts(qint32 processIdentifier)
{
    if (processIdentifier <= 0)
        return {};
    const std::string folder = "/proc/" + std::to_string(processIdentifier);
    return {readLaunchedDesktopFile(folder, processIdentifier), readExecutable(folder)};
}

} // namespace trovell
