// SPDX-License-Identifier: MIT

#include "windows/MissingWindow.h"

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

QList<DesktopWindow> windowsWithoutPlacement(const QList<DesktopWindow>& windows,
                                             const ApplicationWindows& known)
{
    const QSet<WindowId> taken(known.paired.begin(), known.paired.end());
    QList<DesktopWindow> left = windows;
    left.removeIf([&taken](const DesktopWindow& window) {
        return taken.contains(window.id) || window.kind != WindowKind::standard;
    });
    return left;
}

} // namespace

bool areAllPutAway(const QList<DesktopWindow>& windows, const ApplicationWindows& known)
{
    const QList<DesktopWindow> left = windowsWithoutPlacement(windows, known);
    return !left.isEmpty() && std::ranges::all_of(left, [&known](const DesktopWindow& window) {
        return window.states.testFlag(WindowState::minimized) && known.earlier.contains(window.id);
    });
}

Message adviceForMissingWindow(const QString& applicationName, const QList<DesktopWindow>& windows,
                               const ApplicationWindows& known)
{
    constexpr qsizetype mostTitles = 3;
    if (areAllPutAway(windows, known))
        return u"It is minimized. Show it and start the workspace again."_key;
    QStringList titles;
    for (const DesktopWindow& window : windowsWithoutPlacement(windows, known)) {
        if (titles.size() < mostTitles && window.title && !window.title->isEmpty())
            titles.append(u"“%1”"_s.arg(*window.title));
    }
    if (titles.isEmpty())
        return {u"%@ opened no further window."_key, applicationName};
    return {u"%@ shows %@ instead. Open the window there and start the workspace again."_key,
            applicationName, titles.join(u", "_s)};
}

Message adviceForMissingApplication(const QString& applicationName)
{
    return {u"%@ did not come up in time. Start it, and then the workspace again."_key,
            applicationName};
}

} // namespace trovell
