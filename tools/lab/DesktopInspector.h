// SPDX-License-Identifier: MIT
//
// Looks at the windows of a virtual desktop and arranges them, with an X connection of its own and
// by other ways than the product, so that tests can compare. Main thread.
//
// Everything is in root pixels: origin at the top left of the whole X screen, y downward. Functions
// that change something return at once; wait for the effect with `waitUntil` or `waitForRest`.
#pragma once

#include "platform/x11/X11Connection.h"

#include <QMap>
#include <QRect>

#include <chrono>
#include <functional>
#include <optional>

namespace trovell::lab {

/// Polls `condition` every few milliseconds while events are processed. False after `timeout`,
/// which is far longer than any machine needs, however busy it is.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds timeout = std::chrono::minutes(1));

struct InspectedWindow {
    quint32 id = 0;
    QString title;
    QString wmClass;
    /// The window of the client, without decorations.
    QRect client;
    /// What the user sees: with the title bar and borders, without shadows.
    QRect frame;
    /// The outermost window around it. Equals `frame` under window managers whose frame windows
    /// are exactly the decorations (openbox, xfwm4).
    QRect outermost;
    bool isMinimized = false;
    bool isMaximized = false;
    bool isFullScreen = false;
    bool isActive = false;

    bool operator==(const InspectedWindow&) const = default;
};

class DesktopInspector {
public:
    explicit DesktopInspector(const QByteArray& displayName) : m_connection(displayName) {}

    /// The managed windows in the order in which they appeared.
    QList<InspectedWindow> windows() const;
    /// None when it is gone.
    std::optional<InspectedWindow> window(quint32 id) const;
    /// The first managed window with that title, at once.
    std::optional<InspectedWindow> windowTitled(QStringView title) const;

    QMap<QString, QRect> framesByTitle() const;

    /// Waits until that window is managed and has come to rest. Id 0 after half a minute.
    InspectedWindow waitForWindow(QStringView title) const;
    InspectedWindow waitForWindowOfClass(QStringView wmClass) const;
    /// Waits until a window manager takes windows over, or until none runs any more: some announce
    /// themselves before they do, and leave a window that is opened in between unmanaged for ever.
    bool waitForManagement(const std::function<bool()>& runs) const;
    /// Waits until at least that many windows are managed, for half a minute at most.
    bool waitForWindowCount(qsizetype count) const;
    /// Waits until the window has been the same for a fifth of a second and returns it.
    InspectedWindow waitForRest(quint32 id) const;
    /// The same for all windows together.
    QList<InspectedWindow> waitForRest() const;

    /// Asks the window manager to give the client area that rectangle (a plain configure request,
    /// as xdotool sends it; the position may land off by the decorations).
    void moveWindow(quint32 id, const QRect& client);
    void maximize(quint32 id);
    void makeFullScreen(quint32 id);
    void minimize(quint32 id) { sendToRoot(id, "WM_CHANGE_STATE", {3}); }
    void setDesktopCount(quint32 count) { sendToRoot(root(), "_NET_NUMBER_OF_DESKTOPS", {count}); }
    void moveToDesktop(quint32 id, quint32 index) { sendToRoot(id, "_NET_WM_DESKTOP", {index, 2}); }
    void activate(quint32 id) { sendToRoot(id, "_NET_ACTIVE_WINDOW", {2}); }
    /// Asks the program to close it, as a click on the close button does.
    void close(quint32 id) { sendToRoot(id, "_NET_CLOSE_WINDOW", {0, 2}); }

    /// Gives an output an EDID; see `makeEdid`.
    void setEdid(int outputIndex, const QByteArray& edid);

    /// The colour of a point of the window, as 0xRRGGBB; 0 when it cannot be read.
    quint32 pixel(quint32 id, const QPoint& point) const;

    quint32 root() const { return m_connection.root(); }
    /// The window that owns a selection such as "WM_S0"; 0 for none.
    quint32 selectionOwner(const char* selection) const;
    /// The numbers of a property; empty when it is missing.
    QList<quint32> numbers(quint32 id, const char* name) const { return numbers(id, atom(name)); }

private:
    quint32 atom(const QByteArray& name) const;
    QList<quint32> numbers(quint32 id, quint32 property) const;
    QByteArray text(quint32 id, quint32 property) const;
    QRect rootGeometry(quint32 id, quint32* outermost = nullptr) const;
    InspectedWindow waitForMatch(const std::function<bool(const InspectedWindow&)>& isWanted) const;
    void sendToRoot(quint32 id, const char* type, const std::array<quint32, 5>& data);

    X11Connection m_connection;
};

} // namespace trovell::lab
