// SPDX-License-Identifier: MIT
//
// The desktop's window control, as capture and restore need it: which applications run, which
// windows they have, and putting windows in place. Each desktop has its own adapter.
//
// Frames are in accessibility coordinates: points, origin at the top left of the primary display,
// y downward. A frame is what the user sees of a window: with its title bar and borders, without
// its shadow.
#pragma once

#include "display/DisplaySnapshot.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <optional>

namespace trovell {

/// Identifies a live window to the adapter that reported it; means nothing to anyone else.
using WindowHandle = quint64;

/// One running application, however many processes it has.
struct RunningApplication {
    /// That of its first window.
    qint32 processIdentifier = 0;
    /// True for an application the user works with; false for panels, docks and helpers.
    bool isRegular = false;
    bool isTerminated = false;
    bool isHidden = false;
    /// The id of its desktop file, without ".desktop".
    std::optional<QString> bundleIdentifier;
    std::optional<QString> localizedName;
    /// The file URL of its desktop file as an absolute string.
    std::optional<QString> bundleURL;
    /// Its windows in a stable order: the order in which they appeared.
    QList<WindowHandle> windows;
};

/// What the desktop tells of one window. An attribute that cannot be read is absent; that never
/// makes the others unreadable. The accessibility attribute behind each member is given with it.
struct WindowAttributes {
    WindowHandle handle = 0;
    std::optional<bool> isMinimized; ///< "AXMinimized"
    std::optional<QString> role;     ///< "AXRole"
    std::optional<QString> subrole;  ///< "AXSubrole"
    std::optional<QString> title;    ///< "AXTitle"
    std::optional<QPointF> position; ///< "AXPosition"
    std::optional<QSizeF> size;      ///< "AXSize"
};

/// The frame a window is to have.
struct WindowFrameRequest {
    WindowHandle handle = 0;
    QRectF frame;
};

class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    /// Whether windows of other applications can be read and moved now. Any thread; quick.
    [[nodiscard]] virtual bool isTrusted() const = 0;

    /// The same question, letting the desktop ask the user for consent where it can. Does not
    /// wait for the user. Main thread.
    virtual bool requestTrust() = 0;

    /// All running applications, this process's own included, in a stable order. Main thread.
    [[nodiscard]] virtual QList<RunningApplication> runningApplications() = 0;

    /// Those of them that have windows, which takes less to find out than all. Main thread.
    [[nodiscard]] virtual QList<RunningApplication> applicationsWithWindows() = 0;

    /// The running application with that identifier, or an empty list. Main thread.
    [[nodiscard]] virtual QList<RunningApplication>
    runningApplications(const QString& bundleIdentifier) = 0;

    /// Brings the application's topmost window forward and gives it the focus. Main thread.
    virtual void activate(const RunningApplication& application) = 0;

    /// The attached displays, in a stable order. Main thread.
    [[nodiscard]] virtual QList<DisplaySnapshot> currentDisplays() = 0;

    /// "AXWindows" of each application, in the order of `applications` and of their windows, as
    /// they are now. Windows that are gone are left out. Called from worker threads, also from
    /// several at once.
    [[nodiscard]] virtual QList<QList<WindowAttributes>>
    readWindows(const QList<RunningApplication>& applications) const = 0;

    /// Sets "AXSize" and "AXPosition" of all windows in one go and says for each whether the
    /// desktop took both. A size that the window's own size hints do not allow is rounded to one
    /// they allow; that counts as taken. Returns once every window came to rest, which a window
    /// that does not react can delay by at most two seconds. Called from worker threads, also
    /// from several at once.
    [[nodiscard]] virtual QList<bool>
    setWindowFrames(const QList<WindowFrameRequest>& requests) = 0;
};

} // namespace trovell
