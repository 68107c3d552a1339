// SPDX-License-Identifier: MIT

#include "platform/x11/X11Reader.h"

#include "platform/desktop/Activation.h"
#include "platform/x11/X11WindowId.h"
#include "platform/x11/X11WindowReader.h"

#include <utility>

namespace trovell {

X11Reader::X11Reader(const QByteArray& displayName, ApplicationIdentifier identify,
                     BackgroundApplications background)
    : m_connection(displayName), m_control(m_connection),
      m_applications(m_connection, std::move(identify)), m_displays(m_connection),
      m_background(std::move(background))
{
}

DesktopSnapshot X11Reader::answer(const DesktopQuestion& question)
{
    bool areClassesOutdated = false;
    const DesktopSnapshot snapshot = read(question, areClassesOutdated);
    return areClassesOutdated ? read(question, areClassesOutdated) : snapshot;
}

DesktopSnapshot X11Reader::read(const DesktopQuestion& question, bool& areClassesOutdated)
{
    const bool wantsApplications = question.applications != DesktopQuestion::Applications::none;
    const auto control = m_control.request();
    const auto list = wantsApplications ? std::optional(m_applications.request()) : std::nullopt;
    const auto displays = question.displays ? m_displays.request() : nullptr;
    m_connection.finishBatch();
    m_connection.dropEvents();
    DesktopSnapshot snapshot;
    const X11Control::Answer answer = m_control.receive(control);
    snapshot.control = answer.control;
    snapshot.abilities = answer.abilities;
    snapshot.virtualDesktopNames = answer.virtualDesktopNames;
    snapshot.currentVirtualDesktop = answer.currentVirtualDesktop;
    if (displays)
        snapshot.displays = m_displays.receive(*displays);
    if (list)
        snapshot.applications = applicationsAskedFor(
            question, groupWindows(m_applications.receive(*list)), m_background);
    if (question.windows && snapshot.control == WindowControl::available) {
        const auto classes = m_applications.requestClasses();
        readWindows(m_connection, answer.tellsHidden, snapshot.applications);
        // Some programs name themselves only once their window is shown.
        areClassesOutdated = m_applications.haveClassesChanged(classes);
    } else {
        for (RunningApplication& application : snapshot.applications)
            application.windows.clear();
    }
    return snapshot;
}

void X11Reader::activate(const QStringList& identifiers)
{
    const DesktopQuestion question{.applications = DesktopQuestion::Applications::named,
                                   .identifiers = {identifiers.begin(), identifiers.end()},
                                   .windows = true};
    const DesktopSnapshot snapshot = answer(question);
    // A desktop that was just asked for may not be in view yet.
    const auto inView = std::exchange(m_desktopAskedFor, std::nullopt);
    const QList<WindowId> windows = windowsToActivate(
        identifiers, snapshot.applications, inView ? inView : snapshot.currentVirtualDesktop);
    for (const WindowId& window : windows)
        activateWindow(windowOf(window));
}

void X11Reader::activateWindow(xcb_window_t window) const
{
    constexpr quint32 fromPager = 2; // otherwise the window manager may only make it blink
    m_connection.sendToRoot(window, m_connection.atoms().netActiveWindow,
                            {fromPager, XCB_CURRENT_TIME, 0, 0, 0});
    xcb_flush(m_connection.get());
}

void X11Reader::restack(const QList<WindowId>& backToFront) const
{
    constexpr quint32 fromPager = 2;
    for (const WindowId& window : backToFront)
        m_connection.sendToRoot(windowOf(window), m_connection.atoms().netRestackWindow,
                                {fromPager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE, 0, 0});
    xcb_flush(m_connection.get());
}

void X11Reader::showVirtualDesktop(int index)
{
    m_desktopAskedFor = index;
    m_connection.sendToRoot(m_connection.root(), m_connection.atoms().netCurrentDesktop,
                            {static_cast<quint32>(index), XCB_CURRENT_TIME, 0, 0, 0});
    xcb_flush(m_connection.get());
}

} // namespace trovell
