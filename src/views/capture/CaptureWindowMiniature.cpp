// SPDX-License-Identifier: MIT

#include "views/capture/CaptureWindowMiniature.h"

#include "views/style/Painting.h"
#include "views/style/VisualStyle.h"
#include "windows/CapturedApplication.h"

#include <QPainter>

#include <algorithm>

namespace trovell {

namespace {

constexpr double leastWidth = 8;
constexpr double leastHeight = 6;
constexpr float outlineOpacity = 0.35F;

} // namespace

QRectF miniatureWindowRect(const NormalizedFrame& frame, const QSizeF& box)
{
    // Frames count from the bottom of the display, drawings from the top.
    return {frame.x * box.width(), (1 - frame.y - frame.height) * box.height(),
            std::max(leastWidth, frame.width * box.width()),
            std::max(leastHeight, frame.height * box.height())};
}

CaptureWindowMiniature::CaptureWindowMiniature(const VisualStyle& visual,
                                               const CapturedWindow& window, const QSize& box,
                                               QWidget* parent)
    : Picture(parent), m_visual(visual),
      m_frame(normalizeFrame(window.frame, window.display.visibleFrame))
{
    setFixedSize(box);
    setAccessibleName(window.applicationName);
}

void CaptureWindowMiniature::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QColor outline = m_visual.color(ColorToken::labelSecondary);
    outline.setAlphaF(outlineOpacity);
    paintBox(painter, rect(), m_visual.radius(Radius::miniatureBox), Qt::NoBrush, outline);
    paintBox(painter, miniatureWindowRect(m_frame, size()),
             m_visual.radius(Radius::miniatureWindow), m_visual.color(ColorToken::brandFill25));
}

} // namespace trovell
