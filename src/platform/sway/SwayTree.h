// SPDX-License-Identifier: MIT
//
// What sway or i3 tells of its windows, workspaces and outputs, as values of this program. Pure,
// any thread.
#pragma once

#include "display/Display.h"
#include "platform/desktop/ApplicationIdentity.h"
#include "windows/DesktopWindow.h"

#include <QJsonValue>
#include <QList>
#include <QString>

#include <optional>

namespace trovell {

struct SwayWindow {
    /// That of its container, and the X11 window, or where there is none the process.
    WindowId id;
    WindowIdentity identity;
    /// None for panels and the like.
    std::optional<WindowKind> kind;
    QString title;
    /// With title bar and borders.
    QRectF frame;
    /// `minimized` in the scratchpad, `fullScreen`, and `tiled`.
    WindowStates states;
    bool isSticky = false;
    bool isFocused = false;
    /// Empty in the scratchpad.
    QString workspace;
    QString output;
    int stackingPosition = -1;

    [[nodiscard]] bool isTiled() const { return bool(states & WindowState::tiled); }
};

struct SwayWorkspace {
    QString name;
    /// -1 for one that has none.
    int number = -1;
    QString output;
    /// What panels and outer gaps leave free.
    QRectF area;
    bool isVisible = false;
    bool isFocused = false;
};

struct SwayTree {
    /// In the order of the layout: parents' children one after the other, floating ones last.
    QList<SwayWindow> windows;
    QList<SwayWorkspace> workspaces;
    /// In a stable order.
    QList<Display> displays;
    /// Those of `displays`, by which commands know them.
    QStringList outputs;

    /// Null when it is gone, or its number is another window's now.
    [[nodiscard]] const SwayWindow* window(const WindowId& id) const;
    [[nodiscard]] const SwayWorkspace* workspace(const QString& name) const;
    /// Null when there is none with the name's number, or without one that name.
    [[nodiscard]] const SwayWorkspace* workspaceLike(const QString& name) const;
    /// Of the display with the middle of the frame, else of the nearest one; empty without any.
    [[nodiscard]] QString outputAt(const QRectF& frame) const;
};

/// The number that a workspace's name begins with; -1 without one.
[[nodiscard]] int workspaceNumber(const QString& name);

/// Whether both have the same number, or without one the same name.
[[nodiscard]] bool isSameWorkspace(const QString& a, const QString& b);

/// From the answers to GET_TREE, GET_WORKSPACES and GET_OUTPUTS. What is malformed is left out.
[[nodiscard]] SwayTree makeSwayTree(const QJsonValue& tree, const QJsonValue& workspaces,
                                    const QJsonValue& outputs);

} // namespace trovell
