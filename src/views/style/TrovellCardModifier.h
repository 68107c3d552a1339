// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

namespace trovell {

class VisualStyle;

/// The card around a piece of content: 16 px of padding, a rounded box of radius 14 in the card
/// background and its outline on top. Give it a layout; the padding is the frame's contents margin,
/// so the layout's own margins are to be 0. Rows that reach the card's edges want setPadding(0).
class TrovellCardModifier : public QFrame {
    Q_OBJECT

public:
    explicit TrovellCardModifier(const VisualStyle& visual, QWidget* parent = nullptr);

    void setPadding(int pixels);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
};

} // namespace trovell
