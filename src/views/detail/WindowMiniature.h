// SPDX-License-Identifier: MIT
//
// One saved window in the picture of its display. Main thread.
#pragma once

#include "views/style/Picture.h"

#include <QRectF>

namespace trovell {

class VisualStyle;

/// Labelled with its application, which is its accessible name, too.
class WindowMiniature : public Picture {
    Q_OBJECT

public:
    explicit WindowMiniature(const VisualStyle& visual, QWidget* parent = nullptr);

    /// A maximized one has a mark for that.
    void setWindow(const QString& applicationName, bool isMaximized);
    /// In the parent's coordinates, and not bound to whole pixels as a widget's geometry is. What
    /// lies outside the parent is cut off.
    void setFrame(const QRectF& frame);
    [[nodiscard]] const QRectF& frame() const { return m_frame; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
    QRectF m_frame;
    bool m_isMaximized = false;
};

} // namespace trovell
