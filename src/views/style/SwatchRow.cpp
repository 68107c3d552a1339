// SPDX-License-Identifier: MIT

#include "views/style/ChoiceRow.h"

#include "views/style/Painting.h"

#include <QPainter>

namespace trovell {

namespace {

constexpr int swatchGap = 14;
constexpr int ringGap = 2;

/// The button is as large as the selected swatch with its ring, so that nothing moves.
class SwatchButton : public ChoiceButton {
public:
    using ChoiceButton::ChoiceButton;

    QSize sizeHint() const override
    {
        const int side = visual().scaled(Tokens::Size::swatch) + 2 * ringReach();
        return {side, side};
    }

    FocusOutline focusOutline() const override
    {
        const int inset = isChecked() ? 0 : ringReach();
        const QRectF box = rect().adjusted(inset, inset, -inset, -inset);
        return {box, box.height() / 2};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
        const double inset = ringReach();
        const QRectF swatch = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
        paintBox(painter, swatch, swatch.height() / 2, visual().accentColor(identifier()));
        if (isChecked())
            paintRing(painter, rect(), height() / 2.0,
                      visual().tokens().size(Tokens::Size::swatchRing),
                      visual().color(ColorToken::labelPrimary));
    }

private:
    int ringReach() const { return ringGap + visual().tokens().size(Tokens::Size::swatchRing); }
};

} // namespace

SwatchRow::SwatchRow(const VisualStyle& visual, const QString& name,
                     const QStringList& accentIdentifiers, QWidget* parent)
    : ChoiceRow(name, swatchGap - 2 * (ringGap + visual.tokens().size(Tokens::Size::swatchRing)),
                parent)
{
    for (const QString& identifier : accentIdentifiers)
        addButton(new SwatchButton(visual, identifier, *this));
}

} // namespace trovell
