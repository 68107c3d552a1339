// SPDX-License-Identifier: MIT
//
// A saved window as a plain value, for everything that works on other threads or for longer than
// records live.
#pragma once

#include "display/DisplayFingerprint.h"
#include "display/NormalizedFrame.h"
#include "windows/DesktopWindow.h"

#include <QRectF>
#include <QString>
#include <QUuid>

#include <optional>

namespace trovell {

class WindowPlacement;

/// The virtual desktop of a saved window.
struct SavedDesktop {
    /// Counted from 0, at the time of the capture.
    int index = 0;
    /// Empty where it had none. Tells desktops apart before the index does.
    QString name = {};
    bool isAll = false;

    bool operator==(const SavedDesktop&) const = default;
};

struct WindowPlacementSnapshot {
    QUuid id;
    QString bundleIdentifier;
    QString applicationName;
    std::optional<QString> windowTitleHint;
    std::optional<QString> windowRole;
    std::optional<QString> windowSubrole;
    qint64 windowIndexHint = 0;
    NormalizedFrame normalizedFrame;
    /// Screen coordinates. Carried along; a window is placed by its normalized frame.
    QRectF absoluteFrame;
    DisplayFingerprint displayFingerprint;
    /// None where it was not remembered or is not to come back, as all that follows.
    std::optional<WindowStates> states = {};
    std::optional<SavedDesktop> virtualDesktop = {};
    /// Among the windows of the workspace, 0 at the bottom.
    std::optional<qint64> stackingIndex = {};
    /// Its application opens another window when it has too few.
    bool opensMissingWindow = false;

    bool operator==(const WindowPlacementSnapshot& other) const;
};

[[nodiscard]] WindowPlacementSnapshot makeSnapshot(const WindowPlacement& placement);

} // namespace trovell
