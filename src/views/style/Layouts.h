// SPDX-License-Identifier: MIT
//
// Rows and columns of widgets, written as they look. Lengths in logical pixels. Main thread.
#pragma once

#include <QBoxLayout>

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

using LayoutParts = std::initializer_list<LayoutPart>;

template <typename Box> class FilledLayout : public Box {
public:
    /// That of a widget or, without one, part of another layout.
    FilledLayout(QWidget* widget, const QMargins& margins, int spacing, LayoutParts parts = {})
        : Box(widget)
    {
        Box::setContentsMargins(margins);
        Box::setSpacing(spacing);
        for (const LayoutPart& part : parts)
            part.addTo(*this);
    }
    FilledLayout(QWidget* widget, int spacing, LayoutParts parts = {})
        : FilledLayout(widget, {}, spacing, parts)
    {
    }
    FilledLayout(int spacing, LayoutParts parts = {}) : FilledLayout(nullptr, spacing, parts) {}
};

using RowLayout = FilledLayout<QHBoxLayout>;
using ColumnLayout = FilledLayout<QVBoxLayout>;

/// The same margin on all sides.
constexpr QMargins allAround(int pixels)
{
    return {pixels, pixels, pixels, pixels};
}

} // namespace trovell
