// SPDX-License-Identifier: MIT

#include "views/style/MenuPainting.h"

#include "views/style/Painting.h"
#include "views/style/PopupMenu.h"
#include "views/style/VisualStyle.h"

#include <QMenu>
#include <QPainter>
#include <QStyleOption>

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

void prepareMenuWindow(QMenu& menu, const VisualStyle& visual)
{
    // Setting flags of a shown window would hide it.
    if (menu.isVisible() || menu.windowFlags() & Qt::FramelessWindowHint)
        return;
    menu.setWindowFlags(menu.windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    menu.setAttribute(Qt::WA_TranslucentBackground, visual.isComposited());
}

int menuShadowMargin(const QWidget* menu)
{
    const auto* popup = qobject_cast<const PopupMenu*>(menu);
    return popup ? popup->shadowMargin() : 0;
}

void paintMenuPanel(QPainter& painter, const VisualStyle& visual, const QRect& window,
                    int shadowMargin)
{
    const QRect panel = window.adjusted(shadowMargin, shadowMargin, -shadowMargin, -shadowMargin);
    const double radius = visual.isComposited() ? visual.radius(Radius::menu) : 0;
    if (shadowMargin > 0)
        paintShadow(painter, panel, radius, visual.shadow(Palette::Shadow::shadowMenu),
                    shadowMargin);
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
    const RowColors colors = rowColors(visual, item, action && isDestructive(*action));
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
