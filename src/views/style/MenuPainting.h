// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

class QMenu;
class QPainter;
class QRect;
class QStyleOptionMenuItem;
class QWidget;

namespace trovell {

class VisualStyle;

// How every menu of the program looks, painted by TrovellStyle.

constexpr int menuPadding = 6; ///< 5 and the border

/// Makes a menu's window frameless and, with compositing, translucent. Before it is first shown.
void prepareMenuWindow(QMenu& menu, const VisualStyle& visual);

/// Width of the transparent border in which a PopupMenu paints its shadow; 0 for other menus.
int menuShadowMargin(const QWidget* menu);

void paintMenuPanel(QPainter& painter, const VisualStyle& visual, const QRect& window,
                    int shadowMargin);
void paintMenuItem(QPainter& painter, const VisualStyle& visual, const QStyleOptionMenuItem& item,
                   const QMenu* menu);
QSize menuItemSize(const VisualStyle& visual, const QStyleOptionMenuItem& item);

} // namespace trovell
