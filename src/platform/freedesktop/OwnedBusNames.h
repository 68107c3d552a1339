// SPDX-License-Identifier: MIT
//
// Applications that run without a window, known by the name they own on the session bus. Made and
// destroyed on the main thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <QList>
#include <QSet>
#include <QString>

#include <gio/gio.h>

#include <atomic>
#include <memory>
#include <optional>

namespace trovell {

class DesktopFileIndex;

/// An application owns the name that equals its identifier (Desktop Entry Specification 1.5,
/// section 8).
class OwnedBusNames {
public:
    /// Begins to connect to the session bus; `installed` outlives this.
    explicit OwnedBusNames(const DesktopFileIndex& installed);

    [[nodiscard]] bool isConnected() const { return m_connection->bus != nullptr; }

    /// The installed applications with these identifiers that run, or without any all that run and
    /// are offered to the user, sorted by identifier. They have no windows here, whether they have
    /// some or not. On a worker: waits for the bus daemon, 50 ms at most for each question; starts
    /// no application; empty when there is no bus or it is not connected yet.
    [[nodiscard]] QList<RunningApplication>
    running(const std::optional<QSet<QString>>& identifiers) const;

private:
    struct Connection {
        ~Connection()
        {
            if (bus)
                g_object_unref(bus);
        }
        std::atomic<GDBusConnection*> bus = nullptr;
    };

    static void takeConnection(GObject*, GAsyncResult* result, gpointer connection);

    const DesktopFileIndex& m_installed;
    /// Nothing in it until the bus has answered; shared with the pending request, which may end
    /// later.
    std::shared_ptr<Connection> m_connection;
};

} // namespace trovell
