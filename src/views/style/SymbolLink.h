// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/StyledButton.h"

namespace trovell {

/// A borderless row of a symbol and a text that acts: "Settings" in the sidebar (labelPrimary), the
/// links of the About page (link).
class SymbolLink : public StyledButton {
    Q_OBJECT

public:
    SymbolLink(const VisualStyle& visual, const QString& symbolName, const QString& text,
               ColorToken color = ColorToken::labelPrimary, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    double cornerRadius() const override;

private:
    QString m_symbolName;
    ColorToken m_color;
};

} // namespace trovell
