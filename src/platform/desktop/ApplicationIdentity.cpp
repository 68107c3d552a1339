// SPDX-License-Identifier: MIT

#include "platform/desktop/ApplicationIdentity.h"

#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// What one of the process's files of zero-terminated texts holds; a program has few of them.
QByteArrayList textsOfProcess(qint32 processIdentifier, const char* file)
{
    constexpr qint64 most = 1 << 18;
    QFile texts(u"/proc/%1/%2"_s.arg(processIdentifier).arg(QLatin1StringView(file)));
    return texts.open(QIODevice::ReadOnly) ? texts.read(most).split('\0') : QByteArrayList();
}

/// The file of a program that runs from a picture of itself, mounted at its start.
QByteArray pictureOf(const QString& executable, const QByteArrayList& environment)
{
    const auto value = [&environment](const QByteArray& key) {
        for (const QByteArray& variable : environment) {
            if (variable.startsWith(key))
                return variable.mid(key.size());
        }
        return QByteArray();
    };
    // Programs that it started inherit the variables.
    const QString folder = QFile::decodeName(value("APPDIR="));
    return !folder.isEmpty() && executable.startsWith(folder + u'/') ? value("APPIMAGE=")
                                                                     : QByteArray();
}

/// The script that an interpreter runs, if it can be started by itself.
QByteArray scriptOf(const QByteArrayList& commandLine)
{
    const QByteArray script = commandLine.value(1);
    if (!script.startsWith('/') || !QFileInfo(QFile::decodeName(script)).isFile())
        return {};
    QFile file(QFile::decodeName(script));
    const bool isScript =
        QFileInfo(file).isExecutable() && file.open(QIODevice::ReadOnly) && file.read(2) == "#!";
    return isScript ? script : QByteArray();
}

/// What starts the process's program again.
QString programOfProcess(qint32 processIdentifier)
{
    if (processIdentifier <= 0)
        return {};
    QString executable = QFileInfo(u"/proc/%1/exe"_s.arg(processIdentifier)).symLinkTarget();
    for (const QByteArray& path :
         {pictureOf(executable, textsOfProcess(processIdentifier, "environ")),
          scriptOf(textsOfProcess(processIdentifier, "cmdline"))}) {
        if (!path.isEmpty())
            return QFile::decodeName(path);
    }
    return executable;
}

} // namespace

ApplicationIdentity identityWithoutDesktopFile(const WindowIdentity& window)
{
    const QString executable = programOfProcess(window.processIdentifier);
    const QString program = QFileInfo(executable).fileName();
    ApplicationIdentity identity;
    for (const QString& name : {window.wmClass, window.wmInstance, program}) {
        if (identity.name.isEmpty())
            identity.name = name;
    }
    identity.bundleIdentifier = identity.name;
    if (!executable.isEmpty())
        identity.url = QUrl::fromLocalFile(executable);
    return identity;
}

} // namespace trovell
