// SPDX-License-Identifier: MIT
//
// Files that are read and written in one go.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace trovell::lab {

/// Everything in the file; empty when it cannot be read.
inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes the file, and the folders that it needs, or stops the program. Returns the path.
inline QString writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

/// The same for a script that can be started.
inline QString writeProgram(const QString& path, const QByteArray& script)
{
    QFile::setPermissions(writeFile(path, script),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

} // namespace trovell::lab
