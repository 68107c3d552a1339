// SPDX-License-Identifier: MIT

#include "views/shared/GradualColumn.h"

#include "views/style/Layouts.h"

#include <QTimerEvent>

namespace trovell {

namespace {

constexpr int gap = 12;
// No sheet with such a column is higher.
constexpr int screenful = 720;
// Made within a few milliseconds.
constexpr int sliceHeight = 600;

} // namespace

GradualColumn::GradualColumn(qsizetype count, MakeWidget make, QWidget* parent)
    : QWidget(parent), m_count(count), m_make(std::move(make)),
      m_column(new ColumnLayout(this, gap))
{
    addSlice(screenful);
    if (!isComplete())
        startTimer(0);
}

void GradualColumn::timerEvent(QTimerEvent* event)
{
    addSlice(sliceHeight);
    if (isComplete())
        killTimer(event->timerId());
}

void GradualColumn::addSlice(int pixels)
{
    while (pixels > 0 && !isComplete()) {
        QWidget* widget = m_make(m_made++);
        m_column->addWidget(widget);
        pixels -= widget->sizeHint().height();
    }
}

} // namespace trovell
