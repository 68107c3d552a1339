// SPDX-License-Identifier: MIT

#include "views/style/PopupMenu.h"

#include "views/style/MenuPainting.h"
#include "views/style/VisualStyle.h"

#include <QMouseEvent>
#include <QScreen>

#include <algorithm>

namespace trovell {

namespace {

constexpr int shadowSpace = 24;
constexpr int anchorGap = 4;
constexpr int leastWidth = 200;
constexpr char destructiveProperty[] = "trovellDestructive";

QPoint keptInside(const QRect& area, const QPoint& topLeft, const QSize& size)
{
    const int right = area.x() + area.width() - size.width();
    const int bottom = area.y() + area.height() - size.height();
    return {std::max(area.x(), std::min(topLeft.x(), right)),
            std::max(area.y(), std::min(topLeft.y(), bottom))};
}

} // namespace

void setDestructive(QAction& action, bool isDestructive)
{
    action.setProperty(destructiveProperty, isDestructive);
}

bool isDestructive(const QAction& action)
{
    return action.property(destructiveProperty).toBool();
}

PopupMenu::PopupMenu(const VisualStyle& visual, QWidget* parent) : QMenu(parent)
{
    prepareMenuWindow(*this, visual);
    if (visual.isComposited())
        setContentsMargins(shadowSpace, shadowSpace, shadowSpace, shadowSpace);
    setMinimumWidth(leastWidth + 2 * shadowMargin());
}

QAction* PopupMenu::addDestructiveAction(const QString& text)
{
    QAction* action = addAction(text);
    setDestructive(*action, true);
    return action;
}

void PopupMenu::openAt(const QPoint& screenPoint)
{
    const int back = layoutDirection() == Qt::RightToLeft ? panelSize().width() : 0;
    placePanel(screenPoint - QPoint(back, 0));
}

void PopupMenu::openOver(const QRect& box, QAction* current)
{
    setMinimumWidth(box.width() + 2 * shadowMargin());
    const QSize panel = panelSize();
    const QRect row = actionGeometry(current ? current : actions().value(0));
    const int rowCenter = row.y() + row.height() / 2 - shadowMargin();
    const int x =
        layoutDirection() == Qt::RightToLeft ? box.x() : box.x() + box.width() - panel.width();
    placePanel({x, box.y() + box.height() / 2 - rowCenter});
    if (current)
        setActiveAction(current);
}

void PopupMenu::setAnchor(QWidget* anchor, Qt::Alignment edge)
{
    m_anchor = anchor;
    m_anchorEdge = edge;
}

void PopupMenu::openAtAnchor()
{
    if (m_anchor)
        placePanel(anchoredPosition());
}

QSize PopupMenu::panelSize() const
{
    const int margins = 2 * shadowMargin();
    return sizeHint().expandedTo(minimumSize()) - QSize(margins, margins);
}

QPoint PopupMenu::anchoredPosition() const
{
    const QRect anchor(m_anchor->mapToGlobal(QPoint()), m_anchor->size());
    const bool meetRight =
        QStyle::visualAlignment(m_anchor->layoutDirection(), m_anchorEdge) & Qt::AlignRight;
    const QSize panel = panelSize();
    const int x = meetRight ? anchor.x() + anchor.width() - panel.width() : anchor.x();
    const int below = anchor.y() + anchor.height() + anchorGap;
    const QRect area = m_anchor->screen()->availableGeometry();
    const bool fitsBelow = below + panel.height() <= area.y() + area.height();
    return {x, fitsBelow ? below : anchor.y() - anchorGap - panel.height()};
}

void PopupMenu::placePanel(const QPoint& topLeft)
{
    m_requestedPanel = topLeft;
    popup(topLeft);
}

void PopupMenu::showEvent(QShowEvent* event)
{
    // popup() has placed the window as if its transparent border were part of the menu. It is not
    // mapped yet, so this moves it without a flicker.
    if (m_requestedPanel) {
        const QRect area = screen()->availableGeometry();
        const QPoint panel = keptInside(area, *m_requestedPanel, panelSize());
        move(panel - QPoint(shadowMargin(), shadowMargin()));
    }
    m_requestedPanel.reset();
    QMenu::showEvent(event);
}

void PopupMenu::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QRect panel = rect().marginsRemoved(contentsMargins());
    if (rect().contains(position) && !panel.contains(position))
        close();
    else
        QMenu::mousePressEvent(event);
}

} // namespace trovell
