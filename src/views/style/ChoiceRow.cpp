// SPDX-License-Identifier: MIT

#include "views/style/ChoiceRow.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include <algorithm>

namespace trovell {

namespace {

constexpr int hoverMilliseconds = 80;

/// How far an arrow key moves along the row, in reading order; 0 for every other key.
int stepOf(int key, Qt::LayoutDirection direction)
{
    const int forward = direction == Qt::RightToLeft ? -1 : 1;
    switch (key) {
    case Qt::Key_Right:
        return forward;
    case Qt::Key_Left:
        return -forward;
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Up:
        return -1;
    default:
        return 0;
    }
}

} // namespace

ChoiceButton::ChoiceButton(const VisualStyle& visual, const QString& identifier, ChoiceRow& row)
    : QRadioButton(&row), m_visual(visual), m_identifier(identifier), m_row(row),
      m_hover(*this, visual, hoverMilliseconds)
{
    setAccessibleName(identifier);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

bool ChoiceButton::event(QEvent* event)
{
    if (event->type() == QEvent::Enter)
        m_hover.moveTo(isEnabled() ? 1 : 0);
    else if (event->type() == QEvent::Leave)
        m_hover.moveTo(0);
    else if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QRadioButton::event(event);
}

void ChoiceButton::keyPressEvent(QKeyEvent* event)
{
    if (const int step = stepOf(event->key(), layoutDirection()))
        m_row.moveFocus(*this, step);
    else
        QRadioButton::keyPressEvent(event);
}

ChoiceRow::ChoiceRow(const QString& name, int gap, QWidget* parent) : QWidget(parent)
{
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
}

std::optional<QString> ChoiceRow::selected() const
{
    for (const ChoiceButton* button : m_buttons)
        if (button->isChecked())
            return button->identifier();
    return std::nullopt;
}

void ChoiceRow::setSelected(const QString& identifier)
{
    ChoiceButton* stop = m_buttons.value(0);
    for (ChoiceButton* button : std::as_const(m_buttons)) {
        // An exclusive button cannot be unchecked; an unknown choice leaves all of them so.
        const QSignalBlocker quietly(button);
        button->setAutoExclusive(false);
        button->setChecked(button->identifier() == identifier);
        button->setAutoExclusive(true);
        if (button->isChecked())
            stop = button;
    }
    makeTabStop(stop);
}

void ChoiceRow::addButton(ChoiceButton* button)
{
    layout()->addWidget(button);
    m_buttons.append(button);
    connect(button, &QAbstractButton::toggled, this, [this, button](bool isOn) {
        if (!isOn)
            return;
        makeTabStop(button);
        Q_EMIT
        chosen(button->identifier());
    });
    if (m_buttons.size() == 1)
        makeTabStop(button);
}

void ChoiceRow::moveFocus(ChoiceButton& from, int step)
{
    const qsizetype count = m_buttons.size();
    const qsizetype next = (m_buttons.indexOf(&from) + step + count) % count;
    makeTabStop(m_buttons[next]);
    m_buttons[next]->setFocus(Qt::TabFocusReason);
}

void ChoiceRow::makeTabStop(ChoiceButton* stop)
{
    for (ChoiceButton* button : std::as_const(m_buttons))
        button->setFocusPolicy(button == stop ? Qt::TabFocus : Qt::NoFocus);
}

} // namespace trovell
