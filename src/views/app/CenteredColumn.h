// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/VisualStyle.h"

#include <QVBoxLayout>
#include <QWidget>

namespace trovell {

class TextLabel;

/// A column of widgets in the middle of a page, each as wide as it asks to be and centred. Main
/// thread.
class CenteredColumn : public QWidget {
    Q_OBJECT

public:
    explicit CenteredColumn(const VisualStyle& visual, QWidget* parent = nullptr);

    /// `gap` logical pixels below what stands above.
    void add(QWidget* widget, int gap);
    /// A wrapping text of at most `width` logical pixels at factor 1.
    TextLabel* addText(TextRole role, ColorToken color, int width, int gap);

private:
    const VisualStyle& m_visual;
    QVBoxLayout* m_column;
};

} // namespace trovell
