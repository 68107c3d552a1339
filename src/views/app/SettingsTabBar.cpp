// SPDX-License-Identifier: MIT

#include "views/app/SettingsTabBar.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QHoverEvent>
#include <QPainter>

#include <algorithm>

namespace trovell {

namespace {

constexpr QSize leastTab(84, 56);
constexpr int tabGap = 6;
constexpr int tabPadding = 10;
constexpr int symbolSize = 22;
constexpr int symbolTop = 7;
constexpr int textGap = 4;
constexpr int tabRadius = 9;

} // namespace

SettingsTabBar::SettingsTabBar(const VisualStyle& visual, QWidget* parent)
    : QTabBar(parent), m_visual(visual)
{
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    // The ring lies around the current tab and moves with it.
    connect(this, &QTabBar::currentChanged, this, [this] { update(); });
}

int SettingsTabBar::addSymbolTab(const QString& symbolName)
{
    const int index = addTab(QString());
    setTabData(index, symbolName);
    return index;
}

QSize SettingsTabBar::tabSizeHint(int index) const
{
    const int text = textWidth(m_visual.text(TextRole::caption, QFont::DemiBold), tabText(index)) +
                     2 * tabPadding;
    return {std::max(m_visual.scaled(leastTab.width()), text) + tabGap,
            m_visual.scaled(leastTab.height())};
}

QSize SettingsTabBar::sizeHint() const
{
    int width = 0;
    for (int index = 0; index < count(); ++index)
        width += tabSizeHint(index).width();
    return {width, m_visual.scaled(leastTab.height())};
}

FocusOutline SettingsTabBar::focusOutline() const
{
    return {boxOf(currentIndex()), tabRadius};
}

QRect SettingsTabBar::boxOf(int index) const
{
    return tabRect(index).adjusted(tabGap / 2, 0, -tabGap / 2, 0);
}

void SettingsTabBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    for (int index = 0; index < count(); ++index)
        paintTab(painter, index);
}

void SettingsTabBar::paintTab(QPainter& painter, int index) const
{
    const QRect box = boxOf(index);
    const bool isCurrent = index == currentIndex();
    if (isCurrent || index == m_hovered)
        paintBox(painter, box, tabRadius,
                 m_visual.color(isCurrent ? ColorToken::brandFill15 : ColorToken::ghostHover));
    const QColor color =
        m_visual.color(isCurrent ? ColorToken::linkHover : ColorToken::labelSecondary);
    const int side = m_visual.scaled(symbolSize);
    const QRect symbol(box.left(), box.top() + m_visual.scaled(symbolTop), box.width(), side);
    m_visual.paintSymbol(painter, symbol, tabData(index).toString(), color);
    const TextStyle style =
        m_visual.text(TextRole::caption, isCurrent ? QFont::DemiBold : QFont::Medium);
    const QRect text(box.left(), symbol.top() + side + m_visual.scaled(textGap), box.width(),
                     style.lineHeight);
    paintLine(painter, text, style, color, tabText(index), Qt::AlignHCenter);
}

bool SettingsTabBar::event(QEvent* event)
{
    if (event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter) {
        m_hovered = tabAt(static_cast<QHoverEvent*>(event)->position().toPoint());
        update();
    } else if (event->type() == QEvent::HoverLeave) {
        m_hovered = -1;
        update();
    }
    return QTabBar::event(event);
}

} // namespace trovell
