// SPDX-License-Identifier: MIT

#include "views/style/CheckBox.h"

#include "views/style/Painting.h"

#include <QMouseEvent>
#include <QPainter>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int labelGap = 8;
constexpr double boxRadius = 5;
constexpr double boxBorder = 1.5;
constexpr int checkSize = 14;
constexpr double checkStroke = 3;

class ClickForwarder : public QObject {
public:
    ClickForwarder(QWidget& label, QAbstractButton& button) : QObject(&label), m_button(&button)
    {
        label.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto type = event->type();
        if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonRelease)
            return QObject::eventFilter(watched, event);
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton || !m_button)
            return false;
        const bool isInside =
            static_cast<QWidget*>(watched)->rect().contains(mouse->position().toPoint());
        if (type == QEvent::MouseButtonRelease && isInside)
            m_button->click();
        return true;
    }

private:
    QPointer<QAbstractButton> m_button;
};

} // namespace

CheckBox::CheckBox(const VisualStyle& visual, const QString& label, TextRole role, QWidget* parent)
    : QCheckBox(parent), m_visual(visual), m_role(role)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setLabel(label);
}

void CheckBox::setLabel(const QString& label)
{
    m_label = label;
    if (!label.isEmpty())
        setAccessibleName(label);
    updateGeometry();
    update();
}

QSize CheckBox::sizeHint() const
{
    const int side = m_visual.scaled(Tokens::Size::checkbox);
    if (m_label.isEmpty())
        return {side, side};
    const TextStyle style = m_visual.text(m_role);
    return {side + m_visual.scaled(labelGap) + textWidth(style, m_label),
            std::max(side, style.lineHeight)};
}

FocusOutline CheckBox::focusOutline() const
{
    return {boxRect(), boxRadius};
}

QRect CheckBox::boxRect() const
{
    const int side = m_visual.scaled(Tokens::Size::checkbox);
    return QStyle::visualRect(layoutDirection(), rect(), {0, (height() - side) / 2, side, side});
}

void CheckBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    const QRect box = boxRect();
    paintGroup(painter, box, isEnabled() ? 1 : disabledOpacity,
               [this](QPainter& group) { paintBoxAndMark(group); });
    const int left = box.width() + m_visual.scaled(labelGap);
    paintLine(painter,
              QStyle::visualRect(layoutDirection(), rect(), {left, 0, width() - left, height()}),
              m_visual.text(m_role),
              m_visual.color(isEnabled() ? ColorToken::labelPrimary : ColorToken::labelDisabled),
              m_label);
}

void CheckBox::paintBoxAndMark(QPainter& painter) const
{
    const QRect box = boxRect();
    if (!isChecked()) {
        paintBox(painter, box, boxRadius, m_visual.color(ColorToken::fieldBackground));
        paintRing(painter, box, boxRadius, boxBorder, m_visual.color(ColorToken::fieldBorder));
        return;
    }
    paintBox(painter, box, boxRadius, m_visual.color(ColorToken::action));
    const double inset = (box.width() - m_visual.scaled(checkSize)) / 2.0;
    m_visual.paintSymbol(painter, QRectF(box).adjusted(inset, inset, -inset, -inset),
                         u"_ui/checkmark"_s, m_visual.color(ColorToken::onAction), checkStroke);
}

bool CheckBox::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QCheckBox::event(event);
}

void forwardClicks(QWidget& label, QAbstractButton& button)
{
    new ClickForwarder(label, button);
}

} // namespace trovell
