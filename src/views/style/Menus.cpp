// SPDX-License-Identifier: MIT

#include "views/style/Menus.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QStyleOption>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int rowPadding = 10;
constexpr int checkColumn = 16;
constexpr int checkGap = 9;
constexpr int iconSize = 18;
constexpr int iconGap = 9;
constexpr int shortcutGap = 24;
constexpr int separatorSpace = 5;
constexpr int shadowSpace = 24;
constexpr int anchorGap = 4;
constexpr int leastWidth = 200;
constexpr char destructiveProperty[] = "trovellDestructive";

/// Gives the menu room for its shadow and at least this width; how large its panel then is.
QSize preparedPanel(QMenu& menu, int width)
{
    menu.ensurePolished();
    const int margin = menu.testAttribute(Qt::WA_TranslucentBackground) ? shadowSpace : 0;
    menu.setContentsMargins(margin, margin, margin, margin);
    menu.setMinimumWidth(std::max(menu.minimumWidth(), width + 2 * margin));
    return menu.sizeHint().expandedTo(menu.minimumSize()).shrunkBy(menu.contentsMargins());
}

void openPanel(QMenu& menu, const QPoint& topLeft, const QSize& panel)
{
    menu.popup(topLeft);
    // That has placed the window as if its transparent border were part of the menu.
    const QRect area = menu.screen()->availableGeometry();
    const QPoint last(area.x() + area.width() - panel.width(),
                      area.y() + area.height() - panel.height());
    const QPoint kept(std::max(area.x(), std::min(topLeft.x(), last.x())),
                      std::max(area.y(), std::min(topLeft.y(), last.y())));
    menu.move(kept - menuPanel(menu).topLeft());
}

struct RowColors {
    QColor fill;
    QColor text;
};

RowColors rowColors(const VisualStyle& visual, const QStyleOptionMenuItem& item, bool isDestructive)
{
    if (!(item.state & QStyle::State_Enabled))
        return {Qt::transparent, visual.color(ColorToken::labelDisabled)};
    if (item.state & QStyle::State_Selected)
        return isDestructive ? RowColors{visual.color(ColorToken::destructiveFill),
                                         visual.color(ColorToken::onDestructive)}
                             : RowColors{visual.color(ColorToken::menuHighlight),
                                         visual.color(ColorToken::menuHighlightText)};
    return {Qt::transparent,
            visual.color(isDestructive ? ColorToken::destructive : ColorToken::labelPrimary)};
}

QString withoutMnemonic(QString text)
{
    for (qsizetype i = text.indexOf(u'&'); i >= 0; i = text.indexOf(u'&', i + 1))
        text.remove(i, 1);
    return text;
}

int leadingInset(const VisualStyle& visual, const QStyleOptionMenuItem& item)
{
    const int checks = item.menuHasCheckableItems ? checkColumn + checkGap : 0;
    return checks + (item.icon.isNull() ? 0 : visual.scaledSum({iconSize, iconGap}));
}

/// `place` is as wide and high as the icon may be.
void paintIcon(QPainter& painter, const QStyleOptionMenuItem& item, const QRect& place)
{
    const bool isCurrent = item.state & QStyle::State_Selected;
    const bool isEnabled = item.state & QStyle::State_Enabled;
    item.icon.paint(&painter, place, Qt::AlignCenter,
                    !isEnabled  ? QIcon::Disabled
                    : isCurrent ? QIcon::Selected
                                : QIcon::Normal);
}

void paintSeparator(QPainter& painter, const VisualStyle& visual, const QRect& row)
{
    const QRect rule(row.left() + rowPadding, row.top() + separatorSpace,
                     row.width() - 2 * rowPadding, 1);
    paintHairline(painter, rule, visual.color(ColorToken::separator));
}

} // namespace

void setDestructive(QAction& action)
{
    action.setProperty(destructiveProperty, true);
}

void openMenu(QMenu& menu, const QPoint& screenPoint)
{
    const QSize panel = preparedPanel(menu, leastWidth);
    const int back = menu.layoutDirection() == Qt::RightToLeft ? panel.width() : 0;
    openPanel(menu, screenPoint - QPoint(back, 0), panel);
}

void openMenuBelow(QMenu& menu, const QWidget& anchor, Qt::Alignment edge)
{
    const QSize panel = preparedPanel(menu, leastWidth);
    const QPoint corner = anchor.mapToGlobal(QPoint());
    const bool meetRight = QStyle::visualAlignment(anchor.layoutDirection(), edge) & Qt::AlignRight;
    const int x = meetRight ? corner.x() + anchor.width() - panel.width() : corner.x();
    const int below = corner.y() + anchor.height() + anchorGap;
    const QRect area = anchor.screen()->availableGeometry();
    const bool fitsBelow = below + panel.height() <= area.y() + area.height();
    openPanel(menu, {x, fitsBelow ? below : corner.y() - anchorGap - panel.height()}, panel);
}

void openMenuOver(QMenu& menu, const QWidget& box, QAction* current)
{
    const QSize panel = preparedPanel(menu, box.width());
    const QPoint corner = box.mapToGlobal(QPoint());
    const QRect row = menu.actionGeometry(current ? current : menu.actions().value(0))
                          .translated(-menuPanel(menu).topLeft());
    const bool isMirrored = menu.layoutDirection() == Qt::RightToLeft;
    const int x = isMirrored ? corner.x() : corner.x() + box.width() - panel.width();
    const int y = corner.y() + box.height() / 2 - (row.y() + row.height() / 2);
    openPanel(menu, {x, y}, panel);
    if (current)
        menu.setActiveAction(current);
}

QRect menuPanel(const QWidget& menu)
{
    return menu.rect().marginsRemoved(menu.contentsMargins());
}

void prepareMenuWindow(QMenu& menu, const VisualStyle& visual)
{
    // Setting flags of a shown window would hide it.
    if (menu.isVisible() || menu.windowFlags() & Qt::FramelessWindowHint)
        return;
    menu.setWindowFlags(menu.windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    menu.setAttribute(Qt::WA_TranslucentBackground, visual.isComposited());
}

void paintMenuPanel(QPainter& painter, const VisualStyle& visual, const QWidget& menu)
{
    const QRect panel = menuPanel(menu);
    const double radius = visual.isComposited() ? visual.radius(Radius::menu) : 0;
    if (panel != menu.rect())
        paintShadow(painter, panel, radius, visual.shadow(Palette::Shadow::shadowMenu), panel.x());
    paintBox(painter, panel, radius, visual.color(ColorToken::popoverBackground),
             visual.color(ColorToken::popoverBorder));
}

void paintMenuItem(QPainter& painter, const VisualStyle& visual, const QStyleOptionMenuItem& item,
                   const QMenu* menu)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        paintSeparator(painter, visual, item.rect);
        return;
    }
    const QAction* action = menu ? menu->actionAt(item.rect.center()) : nullptr;
    const RowColors colors =
        rowColors(visual, item, action && action->property(destructiveProperty).toBool());
    if (colors.fill.alpha() > 0)
        paintBox(painter, item.rect, visual.radius(Radius::small), colors.fill);

    const auto place = [&](const QRect& rect) {
        return QStyle::visualRect(item.direction, item.rect, rect);
    };
    const QRect content = item.rect.adjusted(rowPadding, 0, -rowPadding, 0);
    if (item.checked)
        visual.paintSymbol(painter,
                           place({content.left(), content.top(), checkColumn, content.height()}),
                           u"_ui/checkmark"_s, colors.text);
    const int inset = leadingInset(visual, item);
    if (!item.icon.isNull()) {
        const int room = visual.scaledSum({iconSize, iconGap});
        paintIcon(painter, item,
                  place({content.left() + inset - room, content.top(), visual.scaled(iconSize),
                         content.height()}));
    }
    const QStringList columns = withoutMnemonic(item.text).split(u'\t');
    const TextStyle style = visual.text(TextRole::body);
    painter.setLayoutDirection(item.direction);
    paintLine(painter, place(content.adjusted(inset, 0, 0, 0)), style, colors.text,
              columns.first());
    if (columns.size() > 1)
        paintLine(painter, place(content), style, colors.text, columns.at(1), Qt::AlignRight);
}

QSize menuItemSize(const VisualStyle& visual, const QStyleOptionMenuItem& item)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {2 * rowPadding, 2 * separatorSpace + 1};
    const TextStyle style = visual.text(TextRole::body);
    const QStringList columns = withoutMnemonic(item.text).split(u'\t');
    int width = 2 * rowPadding + leadingInset(visual, item) + textWidth(style, columns.first());
    if (columns.size() > 1)
        width += shortcutGap;
    return {width, visual.scaled(Tokens::Size::menuRow)};
}

} // namespace trovell
