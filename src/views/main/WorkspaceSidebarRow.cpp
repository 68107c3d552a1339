// SPDX-License-Identifier: MIT

#include "views/main/WorkspaceSidebarRow.h"

#include "model/TrovellWorkspace.h"
#include "model/WorkspaceChoices.h"
#include "views/style/VisualStyle.h"
#include "views/words/Localization.h"
#include "views/words/Phrases.h"

#include <QPainter>
#include <QStyle>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 10;
constexpr int symbolSize = 20;
constexpr int gap = 10;
constexpr int lineGap = 2;

} // namespace

WorkspaceSidebarRow::WorkspaceSidebarRow(const TrovellWorkspace& workspace,
                                         const Localization& words)
    : symbolName(workspace.symbolName()), name(workspace.name()),
      itemCount(words.text(phrases::itemCount, workspace.itemCount()))
{
    if (const auto definition = workspace.shortcut())
        shortcut = words.text(displayName(*definition));
}

QString WorkspaceSidebarRow::spokenText() const
{
    QStringList parts{name, itemCount, shortcut};
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

void WorkspaceSidebarRow::paint(QPainter& painter, const VisualStyle& visual, const QRect& row,
                                const RowState& state) const
{
    paintRowBackground(painter, visual, row, state);
    const QRect inner = row.adjusted(padding, 0, -padding, 0);
    const Qt::LayoutDirection direction = painter.layoutDirection();
    const int side = visual.scaled(symbolSize);
    const QRect symbol(inner.x(), inner.y() + (inner.height() - side) / 2, side, side);
    visual.paintSymbol(painter, QStyle::visualRect(direction, row, symbol), symbolName,
                       visual.brandTint());
    const QRect texts = inner.adjusted(side + gap, 0, 0, 0);
    if (shortcut.isEmpty()) {
        paintTexts(painter, visual, texts, row, state.isSelected);
        return;
    }
    const TextStyle style = visual.text(TextRole::caption2);
    const int width = textWidth(style, shortcut);
    const QRect end(inner.x() + inner.width() - width, inner.y(), width, inner.height());
    paintLine(painter, QStyle::visualRect(direction, row, end), style,
              visual.color(ColorToken::labelTertiary), shortcut);
    paintTexts(painter, visual, texts.adjusted(0, 0, -width - gap, 0), row, state.isSelected);
}

void WorkspaceSidebarRow::paintTexts(QPainter& painter, const VisualStyle& visual,
                                     const QRect& room, const QRect& row, bool isSelected) const
{
    const TextStyle nameStyle =
        visual.text(TextRole::body, isSelected ? QFont::DemiBold : QFont::Medium);
    const TextStyle countStyle = visual.text(TextRole::caption);
    const int height = nameStyle.lineHeight + lineGap + countStyle.lineHeight;
    const int top = room.y() + (room.height() - height) / 2;
    const auto line = [&](int y, const TextStyle& style) {
        const QRect box(room.x(), y, room.width(), style.lineHeight);
        return QStyle::visualRect(painter.layoutDirection(), row, box);
    };
    paintLine(painter, line(top, nameStyle), nameStyle, visual.color(ColorToken::labelPrimary),
              name);
    paintLine(painter, line(top + nameStyle.lineHeight + lineGap, countStyle), countStyle,
              visual.color(ColorToken::labelSecondary), itemCount);
}

QPixmap WorkspaceSidebarRow::picture(const VisualStyle& visual, const QSize& size,
                                     double devicePixelRatio, Qt::LayoutDirection direction) const
{
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setLayoutDirection(direction);
    paint(painter, visual, QRect(QPoint(), size), {});
    return pixmap;
}

} // namespace trovell
