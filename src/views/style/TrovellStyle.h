// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

namespace trovell {

class VisualStyle;

/// Fusion with this program's check boxes, combo boxes, sliders, progress bars, menus, text fields,
/// scroll bars, tooltips, splitters and focus frames. Made by VisualStyle::install; the application
/// owns it.
class TrovellStyle : public QProxyStyle {
    Q_OBJECT

public:
    explicit TrovellStyle(const VisualStyle& visual);

    void polish(QWidget* widget) override;
    using QProxyStyle::polish;
    QPalette standardPalette() const override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contentsSize,
                           const QWidget* widget) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drawField(QPainter& painter, const QStyleOption& option) const;
    void drawTooltip(QPainter& painter, const QStyleOption& option) const;

    const VisualStyle& m_visual;
};

} // namespace trovell
