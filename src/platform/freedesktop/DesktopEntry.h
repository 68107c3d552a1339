// SPDX-License-Identifier: MIT
//
// The installed applications as their desktop files describe them.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace trovell {

/// What of a desktop file helps to recognise the application's windows.
struct DesktopEntry {
    /// Without ".desktop".
    QString id;
    /// Localized.
    QString name;
    /// Absolute path of the desktop file.
    QByteArray path;
    QString startupWMClass;
    /// NoDisplay: not offered to the user.
    bool isConcealed = false;
    /// The program that Exec starts, as an absolute path without symbolic links. Empty when it
    /// runs any program it is told to, as interpreters do, and so tells nothing of a process.
    QByteArray program;
    /// How little the program alone says: higher for a program that is given arguments and for one
    /// that is named by an alias such as x-terminal-emulator.
    int programRank = 0;

    bool operator==(const DesktopEntry&) const = default;
};

/// The id of a desktop file, as it is used here, from its name or from the id that GIO uses.
[[nodiscard]] QString desktopEntryId(const QString& desktopFileName);

/// All applications in the XDG application folders; a file in the user's folder replaces one of the
/// system with the same id, and a deleted (Hidden) one is left out. Sorted: those offered to the
/// user first, then by id. Reads every file; any thread.
[[nodiscard]] QList<DesktopEntry> loadDesktopEntries();

} // namespace trovell
