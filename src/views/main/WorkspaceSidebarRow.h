// SPDX-License-Identifier: MIT
//
// What a row of the sidebar says and how it is drawn. Main thread.
#pragma once

#include "views/style/RowPainting.h"

#include <QPixmap>
#include <QString>

namespace trovell {

class Localization;
class TrovellWorkspace;
class VisualStyle;

/// All texts as they are shown.
struct WorkspaceSidebarRow {
    QString symbolName;
    QString name;
    QString itemCount;
    /// Empty without a shortcut.
    QString shortcut;

    /// Reads no items.
    WorkspaceSidebarRow(const TrovellWorkspace& workspace, const Localization& words);

    /// All of it in one line, for assistive tools.
    [[nodiscard]] QString spokenText() const;

    /// In the painter's layout direction. `row` is the visible row; a name too long for it is
    /// elided, the shortcut never.
    void paint(QPainter& painter, const VisualStyle& visual, const QRect& row,
               const RowState& state) const;
    /// The same at rest, on nothing.
    [[nodiscard]] QPixmap picture(const VisualStyle& visual, const QSize& size,
                                  double devicePixelRatio, Qt::LayoutDirection direction) const;

private:
    void paintTexts(QPainter& painter, const VisualStyle& visual, const QRect& room,
                    const QRect& row, bool isSelected) const;
};

} // namespace trovell
