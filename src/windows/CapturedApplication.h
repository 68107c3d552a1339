// SPDX-License-Identifier: MIT
//
// The windows that were open at a capture, grouped by application, and the user's choice among
// them. Plain values; `makePlacement` belongs to the main thread, like every record.
#pragma once

#include "display/DisplaySnapshot.h"
#include "windows/WindowPlacementSnapshot.h"

#include <QList>
#include <QRectF>
#include <QString>
#include <QUuid>

#include <memory>
#include <optional>

namespace trovell {

class WindowPlacement;

struct CapturedWindow {
    QUuid id;
    QString bundleIdentifier;
    QString applicationName;
    /// None when the window has no title or an empty one.
    std::optional<QString> windowTitle;
    std::optional<QString> role;
    std::optional<QString> subrole;
    /// Position among all windows of the application, also those that are not ordinary.
    qint64 windowIndex = 0;
    /// Screen coordinates: points, origin at the bottom left of the primary display, y upward.
    QRectF frame;
    DisplaySnapshot display;
    WindowStates states = {};
    /// None where the desktop has none or does not tell.
    std::optional<SavedDesktop> virtualDesktop = {};
    /// Among all windows of the desktop, 0 at the bottom.
    std::optional<qint64> stackingIndex = {};
    /// It is one of several of its application.
    bool hasSiblings = false;
    bool isIncluded = true;

    bool operator==(const CapturedWindow& other) const;
};

struct CapturedApplication {
    QString bundleIdentifier = {};
    QString applicationName = {};
    std::optional<QString> applicationURLString = {};
    QList<CapturedWindow> windows = {};
    bool isIncluded = true;
    bool addAsLaunchItem = true;

    bool operator==(const CapturedApplication&) const = default;
};

/// A new, enabled placement record that belongs to no workspace yet.
[[nodiscard]] std::unique_ptr<WindowPlacement> makePlacement(const CapturedWindow& window);

} // namespace trovell
