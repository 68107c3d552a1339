// SPDX-License-Identifier: MIT

#include "views/style/TextStyle.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStyle>

#include <cmath>

namespace trovell {

namespace {

/// Distance from the top of a line to its baseline when the font sits in the middle of the line.
double baselineOffset(const TextStyle& style)
{
    const QFontMetricsF metrics(style.font);
    const double ascent = std::round(metrics.ascent());
    const double descent = std::round(metrics.descent());
    return std::floor((style.lineHeight - ascent - descent) / 2) + ascent;
}

QTextOption paragraphOption(Qt::LayoutDirection direction, Qt::Alignment alignment)
{
    QTextOption option(QStyle::visualAlignment(direction, alignment) | Qt::AlignAbsolute);
    option.setTextDirection(direction);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

} // namespace

int textWidth(const TextStyle& style, const QString& text)
{
    // The small allowance keeps rounding at fractional scales from eliding the last letter.
    return static_cast<int>(std::ceil(QFontMetricsF(style.font).horizontalAdvance(text) + 0.25));
}

void paintLine(QPainter& painter, const QRectF& box, const TextStyle& style, const QColor& color,
               const QString& text, Qt::Alignment alignment)
{
    const QFontMetricsF metrics(style.font);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, box.width());
    const double free = box.width() - metrics.horizontalAdvance(shown);
    const Qt::Alignment visual = QStyle::visualAlignment(painter.layoutDirection(), alignment);
    const double left = visual & Qt::AlignRight     ? free
                        : visual & Qt::AlignHCenter ? std::round(free / 2)
                                                    : 0.0;
    const double top = std::floor(box.top() + (box.height() - style.lineHeight) / 2);
    painter.setFont(style.font);
    painter.setPen(color);
    painter.drawText(QPointF(box.left() + left, top + baselineOffset(style)), shown);
}

Paragraph::Paragraph(const QString& text, const TextStyle& style, double width,
                     Qt::LayoutDirection direction, Qt::Alignment alignment)
    : m_layout(QString(text).replace(u'\n', QChar::LineSeparator), style.font),
      m_lineHeight(style.lineHeight)
{
    m_layout.setTextOption(paragraphOption(direction, alignment));
    const double baseline = baselineOffset(style);
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        // A line in a fallback font has another ascent: its baseline stays where the others' is.
        const double top = line.lineNumber() * m_lineHeight;
        line.setPosition(QPointF(0, top + baseline - line.ascent()));
    }
    m_layout.endLayout();
}

int Paragraph::naturalWidth() const
{
    double width = 0;
    for (int i = 0; i < m_layout.lineCount(); ++i)
        width = std::max(width, m_layout.lineAt(i).naturalTextWidth());
    return static_cast<int>(std::ceil(width + 0.25));
}

void Paragraph::paint(QPainter& painter, const QPointF& topLeft, const QColor& color) const
{
    painter.setPen(color);
    m_layout.draw(&painter, topLeft);
}

} // namespace trovell
