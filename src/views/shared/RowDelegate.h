// SPDX-License-Identifier: MIT
//
// How the rows of every list are painted. Main thread.
#pragma once

#include "views/style/Tokens.h"

#include <QFont>
#include <QStyledItemDelegate>

namespace trovell {

class ApplicationIcons;
class RowList;
class VisualStyle;

/// In logical pixels; heights and pictures grow with the desktop's font factor.
struct RowLook {
    int height = 0; ///< 0 for as high as the texts
    int inset = 0;  ///< beside the row
    int gap = 0;    ///< below it
    int padding = 10;
    int iconSize = 20;
    int symbolSize = 20; ///< in the middle of the icon's place
    int spacing = 12;    ///< between the parts of a row
    int lineGap = 0;
    int verticalMargin = 0;
    QFont::Weight nameWeight = QFont::Medium;
    QFont::Weight selectedNameWeight = QFont::Medium;
    TextRole trailingText = TextRole::caption;
    ColorToken trailingColor = ColorToken::labelSecondary;
    /// Whether a rule parts the rows, in a line of its own below each.
    bool isDivided = false;
};

/// Paints what the roles of RowModel.h say, in the layout direction of a RowList.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    RowDelegate(const VisualStyle& visual, ApplicationIcons& icons, const RowLook& look,
                RowList& list);

    /// The visible row in the place of an item, without what is around it.
    [[nodiscard]] QRect rowRect(const QRect& item) const;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    void paintRow(QPainter& painter, const QStyleOptionViewItem& option,
                  const QModelIndex& index) const;
    void paintIcon(QPainter& painter, const QRect& box, const QModelIndex& index) const;
    void paintTexts(QPainter& painter, const QRect& box, const QModelIndex& index,
                    bool isSelected) const;

    const VisualStyle& m_visual;
    ApplicationIcons& m_icons;
    const RowLook m_look;
    const RowList& m_list;
};

} // namespace trovell
