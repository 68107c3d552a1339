// SPDX-License-Identifier: MIT
//
// Where a captured window stands on its display, as a small drawing. Main thread.
#pragma once

#include "display/NormalizedFrame.h"
#include "views/style/Picture.h"

namespace trovell {

class VisualStyle;
struct CapturedWindow;

/// The window in a drawing of the display, from the drawing's top left, in its units: at least
/// 8 × 6 whatever the window's size, so it may reach beyond.
[[nodiscard]] QRectF miniatureWindowRect(const NormalizedFrame& frame, const QSizeF& box);

/// Named by the application. Of a fixed size; not mirrored for right-to-left languages.
class CaptureWindowMiniature : public Picture {
    Q_OBJECT

public:
    /// `box` in logical pixels.
    CaptureWindowMiniature(const VisualStyle& visual, const CapturedWindow& window,
                           const QSize& box, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
    NormalizedFrame m_frame;
};

} // namespace trovell
