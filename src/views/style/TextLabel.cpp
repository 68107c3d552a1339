// SPDX-License-Identifier: MIT

#include "views/style/TextLabel.h"

#include <QPainter>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int narrowestText = 48;

} // namespace

TextLabel::TextLabel(const VisualStyle& visual, const QString& text, TextRole role,
                     ColorToken color, QWidget* parent)
    : QLabel(parent), m_visual(visual), m_role(role), m_color(color)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setText(text);
}

void TextLabel::setWordWrap(bool wraps)
{
    // Not Minimum, which would keep it from becoming lower than at its preferred width.
    QSizePolicy policy(QSizePolicy::Preferred, wraps ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    policy.setHeightForWidth(wraps);
    QLabel::setWordWrap(wraps);
    setSizePolicy(policy);
}

void TextLabel::setColor(ColorToken color)
{
    m_color = color;
    update();
}

void TextLabel::setWeight(QFont::Weight weight)
{
    m_weight = weight;
    updateGeometry();
    update();
}

void TextLabel::setPreferredWrapWidth(int width)
{
    m_wrapWidth = width;
    updateGeometry();
}

void TextLabel::setElides(bool elides)
{
    m_elides = elides;
    updateGeometry();
}

QSize TextLabel::sizeHint() const
{
    const TextStyle style = textStyle();
    if (!wordWrap())
        return {textWidth(style, text()), style.lineHeight};
    const Paragraph lines = paragraph(m_visual.scaled(m_wrapWidth));
    return {lines.naturalWidth(), lines.height()};
}

QSize TextLabel::minimumSizeHint() const
{
    const QSize wanted = sizeHint();
    const bool mayShrink = wordWrap() || m_elides;
    return {mayShrink ? std::min(wanted.width(), m_visual.scaled(narrowestText)) : wanted.width(),
            textStyle().lineHeight};
}

int TextLabel::heightForWidth(int width) const
{
    return wordWrap() ? paragraph(width).height() : -1;
}

void TextLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    const QColor color = m_visual.color(isEnabled() ? m_color : ColorToken::labelDisabled);
    if (!wordWrap()) {
        paintLine(painter, contentsRect(), textStyle(), color, text(),
                  alignment() & Qt::AlignHorizontal_Mask);
        return;
    }
    const QRect area = contentsRect();
    const Paragraph lines = paragraph(area.width());
    const int top = area.y() + std::max(0, (area.height() - lines.height()) / 2);
    lines.paint(painter, QPointF(area.x(), top), color);
}

TextStyle TextLabel::textStyle() const
{
    return m_weight ? m_visual.text(m_role, *m_weight) : m_visual.text(m_role);
}

Paragraph TextLabel::paragraph(int width) const
{
    return {text(), textStyle(), static_cast<double>(width), layoutDirection(),
            alignment() & Qt::AlignHorizontal_Mask};
}

SelectableLabel::SelectableLabel(const VisualStyle& visual, const QString& text, TextRole role,
                                 ColorToken color, QWidget* parent)
    : QLabel(parent), m_visual(visual), m_role(role), m_color(color)
{
    // Rich text only for the line height, which a plain label cannot have.
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    connect(&visual, &VisualStyle::appearanceChanged, this, &SelectableLabel::applyStyle);
    connect(&visual, &VisualStyle::metricsChanged, this, &SelectableLabel::applyStyle);
    setPlainText(text);
}

void SelectableLabel::setPlainText(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
    applyStyle();
}

void SelectableLabel::applyStyle()
{
    const TextStyle style = m_visual.text(m_role);
    setFont(style.font);
    setText(
        u"<p dir=\"%1\" style=\"margin:0; line-height:%2px; color:%3; white-space:pre-wrap\">%4</p>"_s
            .arg(layoutDirection() == Qt::RightToLeft ? u"rtl"_s : u"ltr"_s,
                 QString::number(style.lineHeight), m_visual.color(m_color).name(),
                 m_text.toHtmlEscaped()));
}

} // namespace trovell
