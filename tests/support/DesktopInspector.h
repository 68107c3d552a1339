// Looks at the windows of a virtual desktop and arranges them, with an X connection of its own and
// without any code of the product, so that tests can compare. Main thread of a test.
//
// Everything is in root pixels: origin at the top left of the whole X screen, y downward. Functions
// that change something return at once; wait for the effect with `waitUntil` or `waitForRest`.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringView>

#include <chrono>
#include <functional>
#include <optional>

struct xcb_connection_t;

namespace trovell::test {

/// Polls `condition` every few milliseconds while events are processed. False after `timeout`.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds timeout = std::chrono::seconds(10));

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
    explicit DesktopInspector(const QByteArray& displayName);
    ~DesktopInspector();
    Q_DISABLE_COPY_MOVE(DesktopInspector)

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
    /// Waits until a window manager takes windows over: some announce themselves before they do,
    /// and leave a window that is opened in between unmanaged for ever.
    bool waitForManagement() const;
    /// Waits until at least that many windows are managed, for half a minute at most.
    bool waitForWindowCount(qsizetype count) const;
    /// Waits until the window has been the same for a fifth of a second and returns it.
    InspectedWindow waitForRest(quint32 id) const;
    /// The same for all windows together.
    QList<InspectedWindow> waitForRest() const;

    /// Asks the window manager to give the client area that rectangle (a plain configure request,
    /// as xdotool sends it; the position may land off by the decorations).
    void moveWindow(quint32 id, const QRect& client);
    void setMaximized(quint32 id, bool isOn);
    void setFullScreen(quint32 id, bool isOn);
    void minimize(quint32 id) { sendToRoot(id, "WM_CHANGE_STATE", {3}); }
    void activate(quint32 id) { sendToRoot(id, "_NET_ACTIVE_WINDOW", {2}); }
    void moveToVirtualDesktop(quint32 id, quint32 index)
    {
        sendToRoot(id, "_NET_WM_DESKTOP", {index, 2});
    }
    /// Asks the program to close it, as a click on the close button does.
    void close(quint32 id) { sendToRoot(id, "_NET_CLOSE_WINDOW", {0, 2}); }
    /// Replaces a property of 32-bit numbers on any window; no values delete it.
    void setProperty(quint32 id, const char* name, const char* type, const QList<quint32>& values);

    /// Gives the output of that name an EDID; see `makeEdid`.
    void setEdid(const QByteArray& outputName, const QByteArray& edid);

    /// The colour of a point of the window, as 0xRRGGBB; 0 when it cannot be read.
    quint32 pixel(quint32 id, const QPoint& point) const;

    quint32 root() const;
    /// The window that owns a selection such as "WM_S0"; 0 for none.
    quint32 selectionOwner(const char* selection) const;
    /// The numbers of a property; empty when it is missing.
    QList<quint32> numbers(quint32 id, const char* name) const;

private:
    quint32 atom(const char* name) const;
    QByteArray property(quint32 id, const char* name) const;
    QRect rootGeometry(quint32 id, quint32* outermost = nullptr) const;
    InspectedWindow waitForMatch(const std::function<bool(const InspectedWindow&)>& isWanted) const;
    void sendToRoot(quint32 id, const char* type, const QList<quint32>& data);

    xcb_connection_t* m_connection;
    mutable QHash<QByteArray, quint32> m_atoms;
};

} // namespace trovell::test
