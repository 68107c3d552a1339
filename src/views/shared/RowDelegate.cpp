// SPDX-License-Identifier: MIT

#include "views/shared/RowDelegate.h"

#include "views/shared/ApplicationIcons.h"
#include "views/shared/RowList.h"
#include "views/shared/RowModel.h"
#include "views/style/Painting.h"
#include "views/style/RowPainting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int warningSize = 18;

/// A row while its parts take their places from both ends.
class Places {
public:
    Places(const QRect& row, int spacing, Qt::LayoutDirection direction)
        : m_row(row), m_room(row), m_spacing(spacing), m_direction(direction)
    {
    }

    QRect takeLeading(int width)
    {
        const QRect place(m_room.x(), m_room.y(), width, m_room.height());
        m_room.adjust(width + m_spacing, 0, 0, 0);
        return visual(place);
    }

    QRect takeTrailing(int width)
    {
        m_room.adjust(0, 0, -width, 0);
        const QRect place(m_room.x() + m_room.width(), m_room.y(), width, m_room.height());
        m_room.adjust(0, 0, -m_spacing, 0);
        return visual(place);
    }

    [[nodiscard]] QRect rest() const { return visual(m_room); }

private:
    [[nodiscard]] QRect visual(const QRect& place) const
    {
        return QStyle::visualRect(m_direction, m_row, place);
    }

    QRect m_row;
    QRect m_room;
    int m_spacing;
    Qt::LayoutDirection m_direction;
};

/// In the middle of the place, from whole pixels.
QRect square(const QRect& place, int side)
{
    return {place.x() + (place.width() - side) / 2, place.y() + (place.height() - side) / 2, side,
            side};
}

} // namespace

RowDelegate::RowDelegate(const VisualStyle& visual, ApplicationIcons& icons, const RowLook& look,
                         RowList& list)
    : QStyledItemDelegate(&list), m_visual(visual), m_icons(icons), m_look(look), m_list(list)
{
}

QRect RowDelegate::rowRect(const QRect& item) const
{
    return item.adjusted(m_look.inset, 0, -m_look.inset, -m_look.gap);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    const int texts = m_visual.text(TextRole::body).lineHeight + m_look.lineGap +
                      m_visual.text(TextRole::caption).lineHeight;
    const int height = m_look.height > 0
                           ? m_visual.scaled(m_look.height)
                           : std::max(texts, m_visual.scaled(m_look.iconSize)) + m_look.isDivided;
    return {0, height + 2 * m_look.verticalMargin + m_look.gap};
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const
{
    if (m_list.indexWidget(index))
        return;
    const auto paint = [&](QPainter& target) {
        target.setLayoutDirection(option.direction);
        paintRow(target, option, index);
    };
    paintGroup(*painter, option.rect, m_list.isLifted(index) ? draggedRowOpacity : 1, paint);
}

void RowDelegate::paintRow(QPainter& painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    const QRect row = rowRect(option.rect);
    const RowState state = m_list.stateOf(option, index);
    paintRowBackground(painter, m_visual, row, state);
    const QRect inner = row.adjusted(m_look.padding, 0, -m_look.padding, -int(m_look.isDivided));
    Places places(inner, m_look.spacing, option.direction);
    const QRect icon = places.takeLeading(m_visual.scaled(m_look.iconSize));
    paintIcon(painter, square(icon, icon.width()), index);
    if (m_look.isDivided && index.row() + 1 < index.model()->rowCount())
        paintHairline(painter, places.rest().translated(0, inner.height()),
                      m_visual.color(ColorToken::separator));
    if (index.data(isWarningRole).toBool()) {
        const int side = m_visual.scaled(warningSize);
        m_visual.paintSymbol(painter, square(places.takeTrailing(side), side),
                             u"exclamationmark.triangle.fill"_s,
                             m_visual.color(ColorToken::warningIcon));
    }
    if (const QString text = index.data(trailingRole).toString(); !text.isEmpty()) {
        const TextStyle style = m_visual.text(m_look.trailingText);
        paintLine(painter, places.takeTrailing(textWidth(style, text)), style,
                  m_visual.color(m_look.trailingColor), text);
    }
    paintTexts(painter, places.rest(), index, state.isSelected);
}

void RowDelegate::paintIcon(QPainter& painter, const QRect& box, const QModelIndex& index) const
{
    const QString application = index.data(applicationRole).toString();
    const QPixmap icon =
        application.isEmpty()
            ? QPixmap()
            : m_icons.pixmap(application, box.width(), painter.device()->devicePixelRatioF());
    if (icon.isNull())
        m_visual.paintSymbol(painter, square(box, m_visual.scaled(m_look.symbolSize)),
                             index.data(symbolRole).toString(), m_visual.color(ColorToken::brand));
    else
        paintPixels(painter, QRectF(box).center(), icon);
}

void RowDelegate::paintTexts(QPainter& painter, const QRect& box, const QModelIndex& index,
                             bool isSelected) const
{
    const QString caption = index.data(captionRole).toString();
    const TextStyle nameStyle =
        m_visual.text(TextRole::body, isSelected ? m_look.selectedNameWeight : m_look.nameWeight);
    const TextStyle captionStyle = m_visual.text(TextRole::caption);
    const int captionHeight = caption.isEmpty() ? 0 : m_look.lineGap + captionStyle.lineHeight;
    const int top = box.y() + (box.height() - nameStyle.lineHeight - captionHeight) / 2;
    const QRect name(box.x(), top, box.width(), nameStyle.lineHeight);
    const bool isFaint = index.data(isFaintRole).toBool();
    paintLine(painter, name, nameStyle,
              m_visual.color(isFaint ? ColorToken::labelSecondary : ColorToken::labelPrimary),
              index.data().toString());
    const QRect below(box.x(), top + nameStyle.lineHeight + m_look.lineGap, box.width(),
                      captionStyle.lineHeight);
    paintLine(painter, below, captionStyle, m_visual.color(ColorToken::labelSecondary), caption);
}

} // namespace trovell
