// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/StyledButton.h"

namespace trovell {

/// A button with a box: bordered, prominent (one per surface), destructive (alerts only, never the
/// default button) or bordered with destructive text. A menu adds a downward chevron.
class PushButton : public StyledButton {
    Q_OBJECT

public:
    enum class Kind { bordered, prominent, destructive, destructiveText };
    enum class Scale { regular, small };

    PushButton(const VisualStyle& visual, const QString& text, Kind kind = Kind::bordered,
               Scale scale = Scale::regular, QWidget* parent = nullptr);

    void setKind(Kind kind);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    double cornerRadius() const override;

private:
    bool isSmall() const { return m_scale == Scale::small; }
    int padding() const;
    int chevronRoom() const;
    TextStyle textStyle() const;
    Surface surface() const;
    QColor textColor() const;

    Kind m_kind;
    Scale m_scale;
};

} // namespace trovell
