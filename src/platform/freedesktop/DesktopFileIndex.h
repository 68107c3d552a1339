// SPDX-License-Identifier: MIT
//
// The installed applications, kept up to date, and which of them a window belongs to. Lives on the
// main thread; the desktop files themselves are read on a worker. Questions may be asked on any
// thread.
#pragma once

#include "platform/desktop/ApplicationIdentity.h"
#include "platform/freedesktop/DesktopFileTable.h"
#include "platform/freedesktop/GObjectPointer.h"

#include <QFutureWatcher>
#include <QList>
#include <QMutex>
#include <QString>

#include <memory>
#include <optional>

namespace trovell {

class DesktopFileIndex {
public:
    /// Starts to read the desktop files, and does so again whenever GIO reports a change in the
    /// application folders. Nothing runs in between.
    DesktopFileIndex();
    ~DesktopFileIndex();
    DesktopFileIndex(const DesktopFileIndex&) = delete;
    DesktopFileIndex& operator=(const DesktopFileIndex&) = delete;

    // Every question waits for the first reading, if that is still under way, and for no later one:
    // a change is seen some milliseconds after it, when the event loop has run.

    /// The application that opened a window; none when no desktop file fits.
    [[nodiscard]] std::optional<ApplicationIdentity> identify(const WindowIdentity& window) const;

    /// The application with that identifier.
    [[nodiscard]] std::optional<ApplicationIdentity>
    application(const QString& bundleIdentifier) const;

    /// All that are offered to the user, sorted by identifier.
    [[nodiscard]] QList<ApplicationIdentity> visibleApplications() const;

private:
    using Table = std::shared_ptr<const DesktopFileTable>;

    static void noteChange(GAppInfoMonitor*, gpointer index);
    void startReading();
    void takeTable();
    [[nodiscard]] Table table() const;

    GObjectPointer<GAppInfoMonitor> m_monitor;
    gulong m_monitorHandler = 0;
    QFutureWatcher<Table> m_reading;
    /// Something changed while a reading was under way, which may have missed it.
    bool m_isReadingOutdated = false;
    QFuture<Table> m_firstReading;
    mutable QMutex m_mutex;
    /// The latest one; null before the first.
    Table m_table;
};

} // namespace trovell
