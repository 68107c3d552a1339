// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/StyledButton.h"

namespace trovell {

/// A borderless button of one symbol, with or without a menu. It has no text: `name` is its
/// accessible name and its tooltip.
class SymbolButton : public StyledButton {
    Q_OBJECT

public:
    enum class Kind { plain, destructive };

    SymbolButton(const VisualStyle& visual, const QString& symbolName, const QString& name,
                 Kind kind = Kind::plain, QWidget* parent = nullptr);

    /// In logical pixels before the font factor: the box is 28 and the symbol 20 by default.
    void setSizes(int box, int symbol);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    double cornerRadius() const override;

private:
    QString m_symbolName;
    Kind m_kind;
    int m_boxSize = 28;
    int m_symbolSize = 20;
};

} // namespace trovell
