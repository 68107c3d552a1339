// SPDX-License-Identifier: MIT
//
// Which application a window or a bus name belongs to: the questions that a window adapter asks
// and the desktop files answer. Plain values; the functions are called on the main thread.
#pragma once

#include "windows/WindowSystem.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace trovell {

/// What a window tells of the program behind it. A text that the window does not have is empty.
struct WindowIdentity {
    /// 0 when it is not known.
    qint32 processIdentifier = 0;
    /// The second and the first string of WM_CLASS (ICCCM 4.1.2.5).
    QString wmClass;
    QString wmInstance;
    /// The _GTK_APPLICATION_ID of the window.
    QString gtkApplicationId;

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

/// Applications that run without a window, known by the bus name they own. Their `windows` are
/// empty. The functions may be empty, which means that there are none.
struct BackgroundApplications {
    std::function<std::optional<RunningApplication>(const QString& bundleIdentifier)> find;
    std::function<QList<RunningApplication>()> list;
};

} // namespace trovell
