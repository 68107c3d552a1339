// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"

namespace trovell {

/// A symbol beside a text, with or without a pill around both. The symbol is hidden from assistive
/// tools: the text says it. Main thread.
class SymbolLabel : public QWidget {
    Q_OBJECT

public:
    /// Sizes in logical pixels at factor 1.
    struct Look {
        int symbolSize = 18;
        ColorToken symbolColor = ColorToken::labelSecondary;
        TextRole role = TextRole::body;
        ColorToken textColor = ColorToken::labelPrimary;
        int gap = 8;
    };

    SymbolLabel(const VisualStyle& visual, const QString& symbolName, const Look& look,
                QWidget* parent = nullptr);

    [[nodiscard]] TextLabel* label() const { return m_label; }
    [[nodiscard]] SymbolView* symbol() const { return m_symbol; }
    void setPill(ColorToken fill);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
    SymbolView* m_symbol;
    TextLabel* m_label;
    std::optional<ColorToken> m_pill;
};

} // namespace trovell
