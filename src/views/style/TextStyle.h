// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QTextLayout>

class QPainter;

namespace trovell {

/// A font with the line height it is set at, in logical pixels.
struct TextStyle {
    QFont font;
    int lineHeight = 0;
};

/// Width of one line, in logical pixels, rounded up so that a label of that width never elides.
int textWidth(const TextStyle& style, const QString& text);

/// Paints one line, vertically centred on its line height inside `box` and elided on its far side
/// where it is too long. `alignment` is horizontal and mirrored for right-to-left painters.
void paintLine(QPainter& painter, const QRectF& box, const TextStyle& style, const QColor& color,
               const QString& text, Qt::Alignment alignment = Qt::AlignLeft);

/// A text broken into lines of a given width with the fixed line height of its style.
class Paragraph {
public:
    /// `width` in logical pixels; `alignment` as in paintLine.
    Paragraph(const QString& text, const TextStyle& style, double width,
              Qt::LayoutDirection direction, Qt::Alignment alignment = Qt::AlignLeft);

    int height() const { return m_layout.lineCount() * m_lineHeight; }
    /// Width of the longest line, rounded up.
    int naturalWidth() const;
    void paint(QPainter& painter, const QPointF& topLeft, const QColor& color) const;

private:
    QTextLayout m_layout;
    int m_lineHeight;
};

} // namespace trovell
