// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Picture.h"

namespace trovell {

class VisualStyle;

/// The logo in a square of `size` logical pixels, hidden from assistive tools. A mark of size 0
/// draws nothing and takes no space.
class TrovellBrandMark : public Picture {
    Q_OBJECT

public:
    TrovellBrandMark(const VisualStyle& visual, double size, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
    double m_size;
};

} // namespace trovell
