// SPDX-License-Identifier: MIT
//
// Windows and running applications as a desktop reports them. Plain values, any thread.
#pragma once

#include <QFlags>
#include <QHashFunctions>
#include <QList>
#include <QRectF>
#include <QString>

#include <optional>

namespace trovell {

/// Identifies a live window to the adapter that reported it; means nothing to anyone else, and
/// nobody else makes one.
class WindowId {
public:
    constexpr WindowId() = default;
    constexpr WindowId(quint64 high, quint64 low) : m_high(high), m_low(low) {}

    [[nodiscard]] constexpr bool isNull() const { return m_high == 0 && m_low == 0; }
    [[nodiscard]] constexpr quint64 high() const { return m_high; }
    [[nodiscard]] constexpr quint64 low() const { return m_low; }

    bool operator==(const WindowId&) const = default;
    friend size_t qHash(const WindowId& id, size_t seed = 0) noexcept
    {
        return qHashMulti(seed, id.m_high, id.m_low);
    }

private:
    quint64 m_high = 0;
    quint64 m_low = 0;
};

/// Panels, desktops, menus and tooltips are no windows to people and are never reported.
enum class WindowKind : quint8 { standard, dialog, utility, notification };

enum class WindowState : quint8 {
    minimized = 1 << 0,
    maximizedHorizontally = 1 << 1,
    maximizedVertically = 1 << 2,
    fullScreen = 1 << 3,
    shaded = 1 << 4,
    above = 1 << 5,
    tiled = 1 << 6,
};
Q_DECLARE_FLAGS(WindowStates, WindowState)
Q_DECLARE_OPERATORS_FOR_FLAGS(WindowStates)

/// What the desktop tells of one window. What cannot be read is absent; that never makes the rest
/// unreadable.
struct DesktopWindow {
    WindowId id;
    WindowKind kind = WindowKind::standard;
    std::optional<QString> title = {};
    /// Desktop coordinates: logical pixels, origin at the top left of the whole desktop, y
    /// downward. What people see of it: with title bar and borders, without shadow.
    std::optional<QRectF> frame = {};
    WindowStates states = {};
    /// Counted from 0; none where that is not known, and for a window on all of them.
    std::optional<int> virtualDesktop = {};
    bool isOnAllDesktops = false;
    /// Among all windows of the desktop, 0 at the bottom; -1 when it is not known.
    int stackingPosition = -1;
    /// The desktop leaves it out of its lists of windows, like a drop-down terminal.
    bool isUnlisted = false;
};

/// One running application, however many processes it has.
struct RunningApplication {
    /// That of its first window.
    qint32 processIdentifier = 0;
    /// True for an application the user works with; false for panels, docks and helpers.
    bool isRegular = false;
    bool isTerminated = false;
    bool isHidden = false;
    /// The id of its desktop file, without ".desktop".
    std::optional<QString> bundleIdentifier = {};
    std::optional<QString> localizedName = {};
    /// The file URL of its desktop file as an absolute string.
    std::optional<QString> bundleURL = {};
    /// In a stable order: that in which they appeared.
    QList<DesktopWindow> windows = {};
};

} // namespace trovell
