// SPDX-License-Identifier: MIT

#include "views/style/TextField.h"

#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QStyleOptionFrame>

namespace trovell {

namespace {

constexpr int usualFieldWidth = 200;
constexpr int narrowestWidth = 80;
constexpr int textInset = 2; ///< QLineEdit's own, inside its contents

} // namespace

TextField::TextField(const VisualStyle& visual, const QString& name, const QString& placeholder,
                     QWidget* parent)
    : QLineEdit(parent), m_visual(visual)
{
    setAccessibleName(name);
    setPlaceholderText(placeholder);
    // QLineEdit would paint it a pixel below the place where the text then appears.
    QPalette unseen;
    unseen.setColor(QPalette::PlaceholderText, Qt::transparent);
    setPalette(unseen);
}

QSize TextField::sizeHint() const
{
    return {m_visual.scaled(usualFieldWidth), m_visual.scaled(Tokens::Size::fieldHeight)};
}

void TextField::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (displayText().isEmpty())
        paintPlaceholder();
}

void TextField::paintPlaceholder()
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect contents = style()
                               ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                               .adjusted(textInset, 0, -textInset, 0);
    const QFontMetricsF metrics(font());
    const int lineHeight = fontMetrics().height();
    const double top = contents.y() + (contents.height() - lineHeight + 1) / 2;
    const QString shown = metrics.elidedText(placeholderText(), Qt::ElideRight, contents.width());
    const double free = contents.width() - metrics.horizontalAdvance(shown);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    // Set as a layout, as QLineEdit sets its text: drawText would round the baseline differently.
    QTextLayout layout(shown, font());
    layout.beginLayout();
    layout.createLine().setLineWidth(contents.width());
    layout.endLayout();
    QPainter painter(this);
    painter.setPen(
        m_visual.color(isEnabled() ? ColorToken::placeholder : ColorToken::labelDisabled));
    layout.draw(&painter, QPointF(contents.x() + (isMirrored ? free : 0), top));
}

QSize TextField::minimumSizeHint() const
{
    return {m_visual.scaled(narrowestWidth), sizeHint().height()};
}

} // namespace trovell
