// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>

class QPainter;

namespace trovell {

class VisualStyle;

// Parts of list rows for item delegates. Rectangles are those of the visible row, without margins.

struct RowState {
    bool isSelected = false;
    bool isHovered = false;
    bool hasFocus = false; ///< the row has the keyboard focus: it gets the ring, inside
    bool isWindowActive = true;
};

/// How much of a row is left at the place it is being dragged from.
constexpr double draggedRowOpacity = 0.45;

/// The rounded selection or hover and the focus ring; nothing for a row at rest.
void paintRowBackground(QPainter& painter, const VisualStyle& visual, const QRect& row,
                        const RowState& state);

/// The mark of a drop: a rule with a ring at its leading end in the gap above `row`.
void paintDropLine(QPainter& painter, const VisualStyle& visual, const QRect& row,
                   Qt::LayoutDirection direction);

/// The box and shadow of a row that is being dragged. Leave `liftedRowMargin` around `row`.
void paintLiftedRow(QPainter& painter, const VisualStyle& visual, const QRect& row);
constexpr int liftedRowMargin = 24;

} // namespace trovell
