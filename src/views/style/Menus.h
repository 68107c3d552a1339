// SPDX-License-Identifier: MIT
//
// Every menu of the program is a QMenu: how it opens, and how TrovellStyle paints it. Main thread.
#pragma once

#include <QSize>

class QAction;
class QMenu;
class QPainter;
class QPoint;
class QRect;
class QStyleOptionMenuItem;
class QWidget;

namespace trovell {

class VisualStyle;

/// Marks an action as one that destroys something; menus show it in the destructive colours.
void setDestructive(QAction& action);

// These place the visible panel, not the larger window with the shadow around it, keep it on the
// screen, and return at once. Never exec() a menu.

/// For context menus: the panel's upper leading corner at a point on the screen.
void openMenu(QMenu& menu, const QPoint& screenPoint);
/// Below `anchor`, or above it where there is no room. `edge` says which edges meet: leading
/// (Qt::AlignLeft) or trailing (Qt::AlignRight).
void openMenuBelow(QMenu& menu, const QWidget& anchor, Qt::Alignment edge);
/// For list boxes: over `box`, at least as wide, with the `current` action over the middle of the
/// box and their trailing edges together. `current` may be null.
void openMenuOver(QMenu& menu, const QWidget& box, QAction* current);

/// The menu without the transparent border in which its shadow is painted, in its own coordinates.
QRect menuPanel(const QWidget& menu);

constexpr int menuPadding = 6; ///< 5 and the border

/// Makes a menu's window frameless and, with compositing, translucent. Before it is first shown.
void prepareMenuWindow(QMenu& menu, const VisualStyle& visual);
void paintMenuPanel(QPainter& painter, const VisualStyle& visual, const QWidget& menu);
void paintMenuItem(QPainter& painter, const VisualStyle& visual, const QStyleOptionMenuItem& item,
                   const QMenu* menu);
QSize menuItemSize(const VisualStyle& visual, const QStyleOptionMenuItem& item);

} // namespace trovell
