// SPDX-License-Identifier: MIT
//
// Window control on an X11 desktop, through a window manager that keeps to EWMH 1.5. Threads as
// the interface says. When the X server goes away everything answers that there is nothing.
#pragma once

#include "platform/desktop/ApplicationIdentity.h"
#include "platform/desktop/WindowClaims.h"
#include "platform/x11/X11Applications.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Displays.h"
#include "windows/WindowSystem.h"

#include <QByteArray>
#include <QThreadPool>

#include <atomic>

namespace trovell {

class X11WindowSystem final : public WindowSystem {
public:
    /// An empty display name means that of the environment. `identify` and the functions of
    /// `background` may be empty.
    X11WindowSystem(const QByteArray& displayName, ApplicationIdentifier identify,
                    BackgroundApplications background);
    /// Waits for up to a second while windows that were just placed are still watched.
    ~X11WindowSystem() override;

    [[nodiscard]] bool isTrusted() const override;
    bool requestTrust() override;
    [[nodiscard]] QList<RunningApplication> runningApplications() override;
    [[nodiscard]] QList<RunningApplication> applicationsWithWindows() override;
    [[nodiscard]] QList<RunningApplication>
    runningApplications(const QString& bundleIdentifier) override;
    void activate(const RunningApplication& application) override;
    [[nodiscard]] QList<DisplaySnapshot> currentDisplays() override;
    [[nodiscard]] QList<QList<WindowAttributes>>
    readWindows(const QList<RunningApplication>& applications) const override;
    [[nodiscard]] QList<bool> setWindowFrames(const QList<WindowFrameRequest>& requests) override;

    /// Gives the focus to this window. Main thread.
    void activateWindow(xcb_window_t window);

    /// How often the reading operations have waited for the server so far.
    [[nodiscard]] int roundTripCount() const { return m_connection.roundTripCount(); }

private:
    /// For all reading, on every thread; no events are selected on it.
    X11Connection m_connection;
    X11Applications m_applications;
    X11Displays m_displays;
    BackgroundApplications m_background;
    /// The window by which the window manager showed itself last time.
    mutable std::atomic<xcb_window_t> m_managerWindow = 0;
    WindowClaims m_claims;
    /// For the watch over windows that were just placed. Last, so that it ends first.
    QThreadPool m_guards;
};

} // namespace trovell
