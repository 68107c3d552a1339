// SPDX-License-Identifier: MIT

#include "views/style/ChoiceRow.h"

#include "views/style/Painting.h"

#include <QPainter>

namespace trovell {

namespace {

constexpr int choiceGap = 6;
constexpr int choiceSymbolSize = 18;

class IconButton : public ChoiceButton {
public:
    using ChoiceButton::ChoiceButton;

    QSize sizeHint() const override
    {
        const QSize size = visual().tokens().iconChoice();
        return {visual().scaled(size.width()), visual().scaled(size.height())};
    }

    FocusOutline focusOutline() const override { return {rect(), radius()}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (isChecked()) {
            paintBox(painter, rect(), radius(), visual().color(ColorToken::brandFill15));
        } else {
            QColor fill =
                visual().color(isDown() ? ColorToken::ghostPressed : ColorToken::ghostHover);
            fill.setAlphaF(fill.alphaF() * static_cast<float>(isDown() ? 1.0 : hovered()));
            paintBox(painter, rect(), radius(), fill);
        }
        const double side = visual().scaled(choiceSymbolSize);
        const QPointF corner((width() - side) / 2, (height() - side) / 2);
        visual().paintSymbol(painter, QRectF(corner, QSizeF(side, side)), identifier(), color());
    }

private:
    double radius() const { return visual().radius(Radius::iconChoice); }

    QColor color() const
    {
        return visual().color(!isEnabled()  ? ColorToken::labelDisabled
                              : isChecked() ? ColorToken::link
                                            : ColorToken::labelPrimary);
    }
};

} // namespace

IconChoiceRow::IconChoiceRow(const VisualStyle& visual, const QString& name,
                             const QStringList& symbolNames, QWidget* parent)
    : ChoiceRow(name, choiceGap, parent)
{
    for (const QString& symbolName : symbolNames)
        addButton(new IconButton(visual, symbolName, *this));
}

} // namespace trovell
