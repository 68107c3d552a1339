// SPDX-License-Identifier: MIT

#include "views/style/StyledButton.h"

#include "views/style/Painting.h"
#include "views/style/RaisedSurface.h"

#include <QAccessible>
#include <QKeyEvent>

namespace trovell {

namespace {

constexpr int buttonHoverMilliseconds = 80;

} // namespace

StyledButton::StyledButton(const VisualStyle& visual, const QString& text, QWidget* parent)
    : QPushButton(text, parent), m_visual(visual), m_hover(*this, visual, buttonHoverMilliseconds)
{
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StyledButton::setMenu(PopupMenu* menu, Qt::Alignment edge)
{
    m_menu = menu;
    menu->setAnchor(this, edge);
    connect(this, &QAbstractButton::pressed, this, &StyledButton::showMenu, Qt::UniqueConnection);
    connect(menu, &QMenu::aboutToHide, this, [this] { setDown(false); });
    updateGeometry();
}

void StyledButton::showMenu()
{
    if (!m_menu || m_menu->isVisible())
        return;
    setDown(true);
    m_menu->openAtAnchor();
}

void StyledButton::setDisclosed(bool isDisclosed)
{
    if (m_isDisclosed == isDisclosed)
        return;
    m_isDisclosed = isDisclosed;
    QAccessible::State change;
    change.expanded = true;
    QAccessibleStateChangeEvent event(this, change);
    QAccessible::updateAccessibility(&event);
}

FocusOutline StyledButton::focusOutline() const
{
    return {rect(), cornerRadius()};
}

QColor StyledButton::surfaceColor(const Surface& surface) const
{
    if (isDown())
        return m_visual.color(surface.pressed);
    return mixed(m_visual.color(surface.rest), m_visual.color(surface.hover), m_hover.value());
}

void StyledButton::paintSurface(QPainter& painter, const QColor& fill, bool hasBorder) const
{
    if (hasBorder || !isEnabled())
        paintRaisedSurface(painter, m_visual, rect(), cornerRadius(), fill, isEnabled());
    else
        paintBox(painter, rect(), cornerRadius(), fill);
}

bool StyledButton::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
        if (isEnabled())
            m_hover.moveTo(1);
        break;
    case QEvent::Leave:
        m_hover.moveTo(0);
        break;
    case QEvent::EnabledChange:
        m_hover.jumpTo(isEnabled() && underMouse() ? 1 : 0);
        break;
    case QEvent::FontChange:
        updateGeometry();
        break;
    default:
        break;
    }
    return QPushButton::event(event);
}

void StyledButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QPushButton::keyPressEvent(event);
        return;
    }
    if (menu())
        showMenu();
    else
        click();
}

} // namespace trovell
