// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/StyledButton.h"

namespace trovell {

/// A text that acts, such as "Locate Again".
class LinkButton : public StyledButton {
    Q_OBJECT

public:
    LinkButton(const VisualStyle& visual, const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    double cornerRadius() const override;
};

} // namespace trovell
