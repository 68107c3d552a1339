// SPDX-License-Identifier: MIT
//
// A small picture of one display with the windows saved on it. Main thread.
#pragma once

#include "views/detail/LayoutMiniatures.h"
#include "views/style/Group.h"

namespace trovell {

class TextLabel;
class VisualStyle;
class WindowMiniature;

/// The display's name above its picture. Around the picture is room for windows that reach beyond
/// the display: this widget is to lie on its card without margins.
class DisplayPreview : public Group {
    Q_OBJECT

public:
    explicit DisplayPreview(const VisualStyle& visual, QWidget* parent = nullptr);

    /// Records are read and not kept.
    void setDisplay(const DisplayPlacements& content);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QRectF pictureFrame(int width) const;
    void place();

    const VisualStyle& m_visual;
    TextLabel* m_name;
    /// Width over height of the picture.
    double m_aspectRatio = 1.2;
    QList<NormalizedFrame> m_frames;
    /// One for each frame, the same order.
    QList<WindowMiniature*> m_miniatures;
};

} // namespace trovell
