// SPDX-License-Identifier: MIT
//
// Applications that run without a window, known by the name they own on the session bus. Main
// thread only.
#pragma once

#include "platform/freedesktop/GObjectPointer.h"
#include "windows/WindowSystem.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace trovell {

class DesktopFileIndex;

/// An application owns the name that equals its identifier (Desktop Entry Specification 1.5,
/// section 8). The questions wait for the bus daemon 50 ms at most, start no application and are
/// answered with no when there is no bus or it is not connected yet.
class OwnedBusNames {
public:
    /// Begins to connect to the session bus; `installed` outlives this.
    explicit OwnedBusNames(DesktopFileIndex& installed);

    [[nodiscard]] bool isConnected() const { return *m_connection != nullptr; }

    /// The installed application with that identifier, if it runs. Has no windows here, whether it
    /// has some or not.
    [[nodiscard]] std::optional<RunningApplication> find(const QString& bundleIdentifier) const;

    /// All that run and are offered to the user, sorted by identifier.
    [[nodiscard]] QList<RunningApplication> list() const;

private:
    using Connection = GObjectPointer<GDBusConnection>;

    static void takeConnection(GObject*, GAsyncResult* result, gpointer connection);
    [[nodiscard]] GVariantPointer ask(const char* method, const char* replyType,
                                      const QString& name = {}) const;
    [[nodiscard]] qint32 processIdentifier(const QString& name) const;

    DesktopFileIndex& m_installed;
    /// Null until the bus has answered; shared with the pending request, which may end later.
    std::shared_ptr<Connection> m_connection;
};

} // namespace trovell
