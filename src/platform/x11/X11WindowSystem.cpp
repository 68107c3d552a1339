// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowSystem.h"

#include "platform/x11/X11FrameSetter.h"
#include "platform/x11/X11Monitors.h"
#include "platform/x11/X11WindowHandle.h"
#include "platform/x11/X11WindowReader.h"

#include <algorithm>
#include <cmath>

namespace trovell {

namespace {

bool isFinite(const QRectF& frame)
{
    return std::isfinite(frame.x()) && std::isfinite(frame.y()) && std::isfinite(frame.width()) &&
           std::isfinite(frame.height());
}

QPoint readOrigin(const X11Connection& connection)
{
    const X11MonitorRequest monitors(connection);
    connection.finishBatch();
    return accessibilityOrigin(monitors.receive());
}

/// The topmost window of the application that is not minimized, else the topmost one.
xcb_window_t windowToActivate(const X11Connection& connection, const QList<WindowHandle>& windows)
{
    const auto stackingRequest =
        connection.requestProperty(connection.root(), connection.atoms().netClientListStacking);
    QList<std::pair<xcb_window_t, xcb_get_property_cookie_t>> requests;
    for (const WindowHandle handle : windows) {
        const xcb_window_t window = windowOfHandle(handle);
        requests.append(
            {window, connection.requestProperty(window, connection.atoms().netWmState)});
    }
    connection.finishBatch();
    const QList<quint32> stacking = propertyNumbers(connection.reply(stackingRequest));
    const auto rank = [&](xcb_window_t window, bool isMinimized) {
        return std::pair(!isMinimized, stacking.indexOf(window));
    };
    xcb_window_t best = 0;
    auto bestRank = rank(0, true);
    for (const auto& [window, request] : std::as_const(requests)) {
        const auto states = propertyNumbers(connection.reply(request));
        const auto itsRank = rank(window, states.contains(connection.atoms().netWmStateHidden));
        if (best == 0 || itsRank > bestRank) {
            best = window;
            bestRank = itsRank;
        }
    }
    return best;
}

} // namespace

X11WindowSystem::X11WindowSystem(const QByteArray& displayName, ApplicationIdentifier identify,
                                 BackgroundApplications background)
    : m_connection(displayName), m_applications(m_connection, std::move(identify)),
      m_displays(m_connection), m_background(std::move(background))
{
    // The watches only sleep; one for every application of a large workspace, and then some.
    m_guards.setMaxThreadCount(64);
}

X11WindowSystem::~X11WindowSystem()
{
    m_guards.waitForDone();
}

bool X11WindowSystem::isTrusted() const
{
    const X11Atoms& atoms = m_connection.atoms();
    const xcb_window_t root = m_connection.root();
    // The window manager shows that it lives by a property on a window of its own (EWMH section
    // 3). That window is known from the last time; only a new window manager needs a second look.
    for (int look = 0; look < 2; ++look) {
        const xcb_window_t expected = m_managerWindow;
        const auto check = m_connection.requestProperty(root, atoms.netSupportingWmCheck);
        const auto supported = m_connection.requestProperty(root, atoms.netSupported);
        const auto proof = m_connection.requestProperty(expected, atoms.netSupportingWmCheck);
        m_connection.finishBatch();
        const quint32 manager = propertyNumbers(m_connection.reply(check)).value(0);
        const QList<quint32> features = propertyNumbers(m_connection.reply(supported));
        const quint32 proven = propertyNumbers(m_connection.reply(proof)).value(0);
        if (manager == 0)
            return false;
        if (manager == expected)
            return proven == manager && features.contains(atoms.netClientList) &&
                   features.contains(atoms.netMoveresizeWindow);
        m_managerWindow = manager;
    }
    return false;
}

bool X11WindowSystem::requestTrust()
{
    // There is nobody to ask: an X11 desktop either has such a window manager or it has not.
    return isTrusted();
}

QList<RunningApplication> X11WindowSystem::runningApplications()
{
    QList<RunningApplication> applications = groupWindows(m_applications.read());
    const auto background = m_background.list ? m_background.list() : QList<RunningApplication>();
    for (const RunningApplication& candidate : background) {
        const bool hasWindows =
            std::any_of(applications.begin(), applications.end(), [&](const auto& known) {
                return known.bundleIdentifier == candidate.bundleIdentifier;
            });
        if (!hasWindows)
            applications.append(candidate);
    }
    return applications;
}

QList<RunningApplication> X11WindowSystem::applicationsWithWindows()
{
    QList<RunningApplication> applications = groupWindows(m_applications.read());
    applications.removeIf(
        [](const RunningApplication& application) { return application.windows.isEmpty(); });
    return applications;
}

QList<RunningApplication> X11WindowSystem::runningApplications(const QString& bundleIdentifier)
{
    const QList<IdentifiedWindow> all = m_applications.read();
    QList<IdentifiedWindow> windows;
    std::copy_if(all.begin(), all.end(), std::back_inserter(windows), [&](const auto& window) {
        return window.application.bundleIdentifier == bundleIdentifier;
    });
    if (!windows.isEmpty())
        return groupWindows(windows);
    const auto background = m_background.find ? m_background.find(bundleIdentifier) : std::nullopt;
    return background ? QList{*background} : QList<RunningApplication>();
}

void X11WindowSystem::activate(const RunningApplication& application)
{
    const xcb_window_t window = windowToActivate(m_connection, application.windows);
    if (window != 0)
        activateWindow(window);
}

void X11WindowSystem::activateWindow(xcb_window_t window)
{
    constexpr quint32 fromPager = 2; // otherwise the window manager may only make it blink
    m_connection.sendToRoot(window, m_connection.atoms().netActiveWindow,
                            {fromPager, XCB_CURRENT_TIME, 0, 0, 0});
    xcb_flush(m_connection.get());
}

QList<DisplaySnapshot> X11WindowSystem::currentDisplays()
{
    return m_displays.read();
}

QList<QList<WindowAttributes>>
X11WindowSystem::readWindows(const QList<RunningApplication>& applications) const
{
    QList<QList<WindowHandle>> windows;
    for (const RunningApplication& application : applications)
        windows.append(application.windows);
    return readWindowAttributes(m_connection, windows);
}

QList<bool> X11WindowSystem::setWindowFrames(const QList<WindowFrameRequest>& requests)
{
    const QPoint origin = readOrigin(m_connection);
    const auto now = std::chrono::steady_clock::now();
    QList<FramePass::Request> settable;
    for (const WindowFrameRequest& request : requests) {
        if (isFinite(request.frame))
            settable.append({request.handle,
                             frameFromPixels(pixelsFromFrame(request.frame.translated(origin))),
                             isYoung(request.handle, now)});
    }
    const auto setter = std::make_shared<X11FrameSetter>(m_connection.server(), settable, m_claims);
    QList<bool> answers = setter->run();
    if (setter->hasWindowsToGuard())
        m_guards.start([setter] { setter->guard(); });
    for (qsizetype index = 0; index < requests.size(); ++index) {
        if (!isFinite(requests.at(index).frame))
            answers.insert(index, false);
    }
    return answers;
}

} // namespace trovell
