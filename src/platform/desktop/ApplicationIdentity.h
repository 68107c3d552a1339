// SPDX-License-Identifier: MIT
//
// Which application a window or a bus name belongs to: the questions that a window adapter asks
// and the desktop files answer. Plain values; the functions may be called on any thread.
#pragma once

#include "windows/DesktopWindow.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace trovell {

/// What a window tells of the program behind it. A text that the window does not have is empty.
struct WindowIdentity {
    /// 0 when it is not known.
    qint32 processIdentifier = 0;
    /// The second and the first string of WM_CLASS (ICCCM 4.1.2.5). A Wayland app id is a class.
    QString wmClass = {};
    QString wmInstance = {};
    /// The _GTK_APPLICATION_ID of the window.
    QString gtkApplicationId = {};
    /// The id that a sandbox gives its application.
    QString sandboxId = {};

    bool operator==(const WindowIdentity&) const = default;
};

struct ApplicationIdentity {
    /// The id of the desktop file, without ".desktop".
    QString bundleIdentifier;
    /// The localized name.
    QString name;
    /// The desktop file.
    QUrl url;

    bool operator==(const ApplicationIdentity&) const = default;
};

/// The installed application that opened a window; none when no desktop file fits.
using ApplicationIdentifier =
    std::function<std::optional<ApplicationIdentity>(const WindowIdentity&)>;

/// Applications that run whether they have windows or not, known by the bus name they own: those
/// with the given identifiers, or without any all that are offered to people. Their `windows` are
/// empty.
using BackgroundApplications =
    std::function<QList<RunningApplication>(const std::optional<QSet<QString>>& identifiers)>;

/// The application of a window that no desktop file fits: its class, and the executable of its
/// process.
[[nodiscard]] ApplicationIdentity identityWithoutDesktopFile(const WindowIdentity& window);

} // namespace trovell
