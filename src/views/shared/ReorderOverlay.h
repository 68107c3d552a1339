// SPDX-License-Identifier: MIT
//
// What is drawn over a list while one of its rows is dragged: the lifted row and the line that
// marks where it will go. Main thread.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <optional>

namespace trovell {

class VisualStyle;

/// Covers `surface`, lets the mouse through, and is invisible to assistive tools.
class ReorderOverlay : public QWidget {
    Q_OBJECT

public:
    ReorderOverlay(const VisualStyle& visual, QWidget& surface);

    /// A picture of the row, on nothing. Null for none.
    void setLiftedRow(const QPixmap& picture);
    /// Upper left corner of the lifted row, in the surface's coordinates.
    void moveLiftedRow(const QPoint& corner);
    /// Marks the gap above a row given in the surface's coordinates.
    void setDropRow(const std::optional<QRect>& row);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
    QPixmap m_picture;
    QPoint m_corner;
    std::optional<QRect> m_dropRow;
};

/// A picture of the row without its background.
[[nodiscard]] QPixmap pictureOfRow(QWidget& row);

} // namespace trovell
