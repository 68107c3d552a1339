// SPDX-License-Identifier: MIT

#include "views/style/TrovellStyle.h"

#include "views/style/ControlPainting.h"
#include "views/style/FocusRing.h"
#include "views/style/Menus.h"
#include "views/style/Painting.h"
#include "views/style/RowPainting.h"
#include "views/style/VisualStyle.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusFrame>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSlider>
#include <QStyleOption>

#include <optional>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

// The design's padding and a border of one, less the two that QLineEdit adds inside its contents.
constexpr int fieldPadding = 11 + 1 - 2;
// QTipLabel adds one pixel to the frame width.
constexpr int tooltipPadding = 6 - 1;
constexpr int tooltipExtraPadding = 9 - 6;
constexpr int tooltipDelayMilliseconds = 600;
constexpr int dropInset = 8; ///< of the line's ends from the list's edges

bool isTooltip(const QWidget* widget)
{
    return widget && widget->inherits("QTipLabel");
}

} // namespace

TrovellStyle::TrovellStyle(const VisualStyle& visual) : QProxyStyle(u"Fusion"_s), m_visual(visual)
{
}

void TrovellStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QScrollBar*>(widget)) {
        // The bar lies over the content, which shows through around the thumb.
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
        widget->setAttribute(Qt::WA_Hover);
    } else if (isTooltip(widget)) {
        widget->setAttribute(Qt::WA_TranslucentBackground, m_visual.isComposited());
        widget->setContentsMargins(tooltipExtraPadding, 0, tooltipExtraPadding, 0);
    } else if (auto* menu = qobject_cast<QMenu*>(widget)) {
        prepareMenuWindow(*menu, m_visual);
        menu->installEventFilter(this);
    } else if (qobject_cast<QComboBox*>(widget) || qobject_cast<QSlider*>(widget)) {
        widget->installEventFilter(this);
    }
}

bool TrovellStyle::eventFilter(QObject* watched, QEvent* event)
{
    if (auto* menu = qobject_cast<QMenu*>(watched)) {
        // A click into the shadow is one beside the menu.
        const bool isBeside =
            event->type() == QEvent::MouseButtonPress &&
            !menuPanel(*menu).contains(static_cast<QMouseEvent*>(event)->position().toPoint());
        return isBeside && menu->close();
    }
    // Scrolling a page must not change the controls that pass below the pointer.
    if (event->type() != QEvent::Wheel)
        return QProxyStyle::eventFilter(watched, event);
    event->ignore();
    return true;
}

QPalette TrovellStyle::standardPalette() const
{
    return m_visual.palette();
}

void TrovellStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_FrameFocusRect: // the ring around the control stands for it
    case PE_FrameMenu:
    case PE_PanelScrollAreaCorner:
        return;
    case PE_PanelMenu:
        if (widget)
            paintMenuPanel(*painter, m_visual, *widget);
        return;
    case PE_PanelLineEdit:
        drawField(*painter, *option);
        return;
    case PE_IndicatorItemViewItemDrop:
        if (option->rect.isValid())
            paintDropLine(*painter, m_visual, option->rect.adjusted(dropInset, 0, -dropInset, 0),
                          option->direction);
        return;
    case PE_PanelTipLabel:
        drawTooltip(*painter, *option);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void TrovellStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case CE_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
            paintMenuItem(*painter, m_visual, *item, qobject_cast<const QMenu*>(widget));
        return;
    case CE_MenuEmptyArea:
    case CE_ComboBoxLabel: // painted with the box
        return;
    case CE_CheckBox:
        if (const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option))
            paintCheckBox(*painter, m_visual, *box);
        return;
    case CE_ProgressBar:
        if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option))
            paintProgressBar(*painter, m_visual, *bar);
        return;
    case CE_FocusFrame:
        if (const auto* frame = qobject_cast<const QFocusFrame*>(widget))
            paintFocusFrame(*painter, m_visual, *frame);
        return;
    case CE_Splitter:
        paintHairline(*painter, option->rect, m_visual.color(ColorToken::separator));
        return;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void TrovellStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar)
        paintScrollBar(*painter, m_visual, *option,
                       subControlRect(control, option, SC_ScrollBarSlider, widget));
    else if (control == CC_Slider && slider)
        paintSlider(*painter, m_visual, *slider);
    else if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option))
        paintComboBox(*painter, m_visual, *box);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void TrovellStyle::drawField(QPainter& painter, const QStyleOption& option) const
{
    const double radius = m_visual.radius(Radius::control);
    const QRectF box = option.rect;
    if (!(option.state & State_Enabled)) {
        paintBox(painter, box, radius, m_visual.color(ColorToken::controlDisabled),
                 m_visual.color(ColorToken::controlDisabledBorder));
        return;
    }
    const QColor fill = m_visual.color(ColorToken::fieldBackground);
    if (!(option.state & State_HasFocus)) {
        paintBox(painter, box, radius, fill, m_visual.color(ColorToken::fieldBorder));
        return;
    }
    paintBox(painter, box, radius, fill);
    paintRing(painter, box, radius, m_visual.tokens().size(Tokens::Size::focusRingWidth),
              m_visual.color(ColorToken::focusRing));
}

void TrovellStyle::drawTooltip(QPainter& painter, const QStyleOption& option) const
{
    const double radius = m_visual.isComposited() ? m_visual.radius(Radius::small) : 0;
    paintBox(painter, option.rect, radius, m_visual.color(ColorToken::tooltipBackground));
}

int TrovellStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuPanelWidth:
    case PM_MenuDesktopFrameWidth:
    case PM_FocusFrameHMargin:
        return metric == PM_FocusFrameHMargin ? focusRingReach : 0;
    case PM_FocusFrameVMargin:
        return focusRingReach;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menuPadding;
    case PM_MenuBarPanelWidth:
        return 0;
    case PM_ScrollBarExtent:
    case PM_ScrollView_ScrollBarOverlap:
        return scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return scrollThumbMinimumLength;
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_ToolTipLabelFrameWidth:
        return tooltipPadding;
    case PM_SliderLength:
        return narrowestSlider;
    case PM_SplitterWidth:
        return 1;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int TrovellStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_Button_FocusPolicy: // a click has already done what it should
        return Qt::TabFocus;
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton;
    case SH_ToolTip_WakeUpDelay:
        return tooltipDelayMilliseconds;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_FocusFrame_AboveWidget:
        return 1;
    // Neither a bitmap mask nor a fade of Qt's own around what is painted translucently.
    case SH_FocusFrame_Mask:
    case SH_ToolTip_Mask:
    case SH_Menu_Mask:
        return 0;
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return 0;
    case SH_Widget_Animation_Duration:
        return m_visual.duration(QProxyStyle::styleHint(hint, option, widget, returnData));
    case SH_Widget_Animate:
        return !m_visual.isAnimationReduced();
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QRect TrovellStyle::subElementRect(SubElement element, const QStyleOption* option,
                                   const QWidget* widget) const
{
    if (element == SE_LineEditContents && qobject_cast<const QLineEdit*>(widget))
        return option->rect.adjusted(fieldPadding, 2, -fieldPadding, 0);
    if (element == SE_CheckBoxIndicator)
        return checkBoxIndicator(m_visual, *option);
    if (element == SE_CheckBoxClickRect)
        return option->rect;
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect TrovellStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl subControl, const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider)
        return scrollBarPart(*slider, subControl);
    if (control == CC_Slider && slider)
        return subControl == SC_SliderHandle ? sliderKnob(m_visual, *slider).toRect()
                                             : sliderTrack(*slider).toRect();
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QSize TrovellStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& contentsSize, const QWidget* widget) const
{
    if (type == CT_MenuItem)
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
            return menuItemSize(m_visual, *item);
    if (type == CT_CheckBox)
        if (const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option))
            return checkBoxSize(m_visual, *box);
    if (type == CT_Slider)
        return sliderSize(m_visual);
    if (type == CT_LineEdit)
        return {contentsSize.width() + 2 * fieldPadding,
                m_visual.scaled(Tokens::Size::fieldHeight)};
    return QProxyStyle::sizeFromContents(type, option, contentsSize, widget);
}

} // namespace trovell
