// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Fade.h"
#include "views/style/FocusRing.h"
#include "views/style/PopupMenu.h"
#include "views/style/VisualStyle.h"

#include <QPushButton>

#include <optional>

namespace trovell {

/// What the push-button-like controls share: hover fading in, a focus ring, Return and Space, a
/// menu placed below. They take the focus by the Tab key only, as a click has already done what it
/// should. A sheet decides what its default button is, so none of them is one by itself.
class StyledButton : public QPushButton, public FocusOutlined {
    Q_OBJECT

public:
    StyledButton(const VisualStyle& visual, const QString& text, QWidget* parent);

    /// Opens below the button when that is pressed; `edge` as in PopupMenu::setAnchor. Not owned.
    /// Stands in for the menu of QPushButton, which would run a nested event loop.
    void setMenu(PopupMenu* menu, Qt::Alignment edge = Qt::AlignLeft);
    PopupMenu* menu() const { return m_menu; }
    void showMenu();

    /// Makes the button one that shows and hides something, and says whether that is shown now.
    void setDisclosed(bool isDisclosed);
    /// None for every other button.
    std::optional<bool> isDisclosed() const { return m_isDisclosed; }

    FocusOutline focusOutline() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// The colours of one kind of surface in its three enabled states.
    struct Surface {
        ColorToken rest;
        ColorToken hover;
        ColorToken pressed;
    };

    const VisualStyle& visual() const { return m_visual; }
    /// The colour of a surface in the button's present state.
    QColor surfaceColor(const Surface& surface) const;
    /// 0 at rest to 1 under the pointer.
    double hovered() const { return m_hover.value(); }
    virtual double cornerRadius() const = 0;
    void paintSurface(QPainter& painter, const QColor& fill, bool hasBorder) const;

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const VisualStyle& m_visual;
    Fade m_hover;
    QPointer<PopupMenu> m_menu;
    std::optional<bool> m_isDisclosed;
};

} // namespace trovell
