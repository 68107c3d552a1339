// SPDX-License-Identifier: MIT
//
// Recognises the application behind a window by the installed desktop files. An immutable value;
// any thread.
#pragma once

#include "platform/desktop/ApplicationIdentity.h"
#include "platform/freedesktop/DesktopEntry.h"
#include "platform/freedesktop/ProcessFacts.h"

#include <QHash>
#include <QList>
#include <QString>

namespace trovell {

class DesktopFileTable {
public:
    /// In the order of `loadDesktopEntries`: where several would do, the first is preferred.
    explicit DesktopFileTable(QList<DesktopEntry> entries);

    [[nodiscard]] const QList<DesktopEntry>& entries() const { return m_entries; }

    /// Null when none has that id.
    [[nodiscard]] const DesktopEntry* entry(const QString& id) const;

    /// Asks, until one answers: the window's GTK application id; its sandbox's; the desktop file
    /// its process was started from; StartupWMClass, exactly and then in any case; an id equal to
    /// the class or instance; an id in reverse domain order that ends with the class; the program
    /// that Exec starts. The class goes before the instance. Null when nothing fits.
    [[nodiscard]] const DesktopEntry* identify(const WindowIdentity& window,
                                               const ProcessFacts& process) const;

private:
    template <class Key> using Positions = QHash<Key, qsizetype>;

    template <class Key>
    const DesktopEntry* find(const Positions<Key>& positions, const Key& key) const;
    const DesktopEntry* findLaunched(const QByteArray& desktopFile) const;
    const DesktopEntry* findByClass(const WindowIdentity& window) const;
    void addProgram(qsizetype position);

    QList<DesktopEntry> m_entries;
    Positions<QString> m_byId;
    Positions<QByteArray> m_byPath;
    Positions<QString> m_byWMClass;
    Positions<QByteArray> m_byProgram;
    /// Keys in one case.
    Positions<QString> m_byFoldedId;
    Positions<QString> m_byFoldedWMClass;
    Positions<QString> m_byFoldedLastPart;
};

/// The entry as the window adapters know it; none for null.
[[nodiscard]] std::optional<ApplicationIdentity> applicationIdentity(const DesktopEntry* entry);

} // namespace trovell
