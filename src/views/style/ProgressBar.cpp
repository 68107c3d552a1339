// SPDX-License-Identifier: MIT

#include "views/style/ProgressBar.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace trovell {

namespace {

constexpr int barHeight = 6;
constexpr int usualWidth = 200;
constexpr int leastBarWidth = 60;

} // namespace

ProgressBar::ProgressBar(const VisualStyle& visual, const QString& name, QWidget* parent)
    : QProgressBar(parent), m_visual(visual)
{
    setAccessibleName(name);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ProgressBar::sizeHint() const
{
    return {usualWidth, barHeight};
}

QSize ProgressBar::minimumSizeHint() const
{
    return {leastBarWidth, barHeight};
}

void ProgressBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const double radius = height() / 2.0;
    paintBox(painter, rect(), radius, m_visual.color(ColorToken::sliderTrack));
    const double share = double(value() - minimum()) / std::max(1, maximum() - minimum());
    if (share <= 0)
        return;
    // Never less than a full round end.
    const int done = std::max(height(), int(width() * share));
    const QRect filled = QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, done, height()));
    paintBox(painter, filled, radius, m_visual.color(ColorToken::action));
}

} // namespace trovell
