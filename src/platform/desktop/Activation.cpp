// SPDX-License-Identifier: MIT

#include "platform/desktop/Activation.h"

#include <QHash>

#include <algorithm>

namespace trovell {

namespace {

/// The topmost window that is not minimized, else the topmost one; none without any.
const DesktopWindow* windowInFront(const QList<DesktopWindow>& windows)
{
    const auto rank = [](const DesktopWindow& window) {
        return std::pair(!(window.states & WindowState::minimized), window.stackingPosition);
    };
    const auto best = std::ranges::max_element(windows, {}, rank);
    return best == windows.end() ? nullptr : &*best;
}

QList<DesktopWindow> frontWindows(const QList<QList<DesktopWindow>>& applications)
{
    QList<DesktopWindow> windows;
    for (const QList<DesktopWindow>& itsWindows : applications) {
        if (const DesktopWindow* window = windowInFront(itsWindows))
            windows.append(*window);
    }
    return windows;
}

} // namespace

QList<WindowId> windowsToActivate(const QStringList& identifiers,
                                  const QList<RunningApplication>& applications,
                                  const std::optional<int>& desktopInView)
{
    QHash<QString, QList<DesktopWindow>> windows;
    for (const RunningApplication& application : applications)
        windows.insert(application.bundleIdentifier.value_or(QString()), application.windows);
    const auto isElsewhere = [&](const DesktopWindow& window) {
        return desktopInView && window.virtualDesktop && window.virtualDesktop != desktopInView;
    };
    QList<QList<DesktopWindow>> all;
    QList<QList<DesktopWindow>> inView;
    for (const QString& identifier : identifiers) {
        all.prepend(windows.value(identifier));
        inView.prepend(all.first());
        inView.first().removeIf(isElsewhere);
    }
    QList<DesktopWindow> chosen = frontWindows(inView);
    if (chosen.isEmpty())
        chosen = frontWindows(all);
    const auto isTogether = [&](const DesktopWindow& window) {
        return !isElsewhere(window) || window.virtualDesktop == chosen.first().virtualDesktop;
    };
    if (!std::ranges::all_of(chosen, isTogether))
        return {};
    QList<WindowId> ids;
    for (const DesktopWindow& window : std::as_const(chosen))
        ids.append(window.id);
    return ids;
}

} // namespace trovell
