// SPDX-License-Identifier: MIT

#include "views/app/NotesArea.h"

#include "views/style/Layouts.h"
#include "views/style/TextLabel.h"

#include <QScrollBar>

#include <algorithm>

namespace trovell {

namespace {

constexpr int padding = 12;
constexpr int greatestHeight = 220;
constexpr int usualWidth = 400;

} // namespace

NotesArea::NotesArea(const VisualStyle& visual, QWidget* parent)
    : ScrollArea(parent), m_visual(visual),
      m_label(new SelectableLabel(visual, {}, TextRole::callout, ColorToken::labelPrimary))
{
    auto* page = new QWidget;
    new ColumnLayout(page, allAround(padding), 0, {m_label, Stretch{}});
    setContent(page);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void NotesArea::setText(const QString& text)
{
    m_label->setPlainText(text);
    verticalScrollBar()->setValue(0);
    updateGeometry();
}

QSize NotesArea::sizeHint() const
{
    const int width = viewport()->width() > 1 ? viewport()->width() : usualWidth;
    const int text = widget()->layout()->totalHeightForWidth(width);
    return {usualWidth, std::min(text, m_visual.scaled(greatestHeight))};
}

FocusOutline NotesArea::focusOutline() const
{
    return {rect(), double(m_visual.radius(Radius::card))};
}

void NotesArea::resizeEvent(QResizeEvent* event)
{
    ScrollArea::resizeEvent(event);
    updateGeometry();
}

} // namespace trovell
