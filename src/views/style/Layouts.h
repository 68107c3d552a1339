// SPDX-License-Identifier: MIT
//
// Rows and columns of widgets, written as they look. Lengths in logical pixels. Main thread.
#pragma once

#include <QBoxLayout>
#include <QMargins>

#include <initializer_list>

namespace trovell {

/// Extra room between two parts, beside the spacing.
struct Gap {
    int pixels;
};

/// Takes what room is left, in this share.
struct Stretch {
    int share = 0;
};

/// What a row or column consists of; as in QBoxLayout, which takes ownership.
class LayoutPart {
public:
    LayoutPart(QWidget* widget, int stretch = 0, Qt::Alignment alignment = {})
        : m_widget(widget), m_stretch(stretch), m_alignment(alignment)
    {
    }
    LayoutPart(QLayout* layout, int stretch = 0, Qt::Alignment alignment = {})
        : m_layout(layout), m_stretch(stretch), m_alignment(alignment)
    {
    }
    LayoutPart(Gap gap) : m_gap(gap.pixels) {}
    LayoutPart(Stretch stretch) : m_stretch(stretch.share) {}

    void addTo(QBoxLayout& box) const;

private:
    QWidget* m_widget = nullptr;
    QLayout* m_layout = nullptr;
    int m_gap = 0;
    int m_stretch = 0;
    Qt::Alignment m_alignment;
};

/// The same margin on all sides.
constexpr QMargins allAround(int pixels)
{
    return {pixels, pixels, pixels, pixels};
}

using LayoutParts = std::initializer_list<LayoutPart>;

// Without a widget, a layout is to be part of another one.

QHBoxLayout* makeRow(QWidget* widget, const QMargins& margins, int spacing, LayoutParts parts = {});
QHBoxLayout* makeRow(QWidget* widget, int spacing, LayoutParts parts = {});
QHBoxLayout* makeRow(int spacing, LayoutParts parts = {});
QVBoxLayout* makeColumn(QWidget* widget, const QMargins& margins, int spacing,
                        LayoutParts parts = {});
QVBoxLayout* makeColumn(QWidget* widget, int spacing, LayoutParts parts = {});
QVBoxLayout* makeColumn(int spacing, LayoutParts parts = {});

} // namespace trovell
