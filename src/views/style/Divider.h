// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Picture.h"

namespace trovell {

class VisualStyle;

/// A hairline across the room it is given.
class Divider : public Picture {
    Q_OBJECT

public:
    explicit Divider(const VisualStyle& visual, Qt::Orientation orientation = Qt::Horizontal,
                     QWidget* parent = nullptr);

    QSize sizeHint() const override { return {1, 1}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
};

} // namespace trovell
