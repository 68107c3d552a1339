// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>
#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionComplex;
class QStyleOptionProgressBar;
class QStyleOptionSlider;

namespace trovell {

class VisualStyle;

// How Qt's plain controls look, painted by TrovellStyle.

constexpr double checkBoxRadius = 5;

/// The box of a bordered control: `fill`, an outline that is stronger along the bottom, and the
/// disabled look instead of both where `isEnabled` is false.
void paintRaisedSurface(QPainter& painter, const VisualStyle& visual, const QRectF& box,
                        double radius, const QColor& fill, bool isEnabled);

/// A check box with its label beside it, which is plain text without mnemonics.
void paintCheckBox(QPainter& painter, const VisualStyle& visual, const QStyleOptionButton& option);
QRect checkBoxIndicator(const VisualStyle& visual, const QStyleOption& option);
QSize checkBoxSize(const VisualStyle& visual, const QStyleOptionButton& option);

void paintComboBox(QPainter& painter, const VisualStyle& visual,
                   const QStyleOptionComboBox& option);
/// How wide and high a combo box is that shows a text of `textWidth`.
QSize comboBoxSize(const VisualStyle& visual, int textWidth);

void paintProgressBar(QPainter& painter, const VisualStyle& visual,
                      const QStyleOptionProgressBar& option);

/// A horizontal slider with a tick under each step.
void paintSlider(QPainter& painter, const VisualStyle& visual, const QStyleOptionSlider& option);
QRectF sliderTrack(const QStyleOptionSlider& option);
QRectF sliderKnob(const VisualStyle& visual, const QStyleOptionSlider& option);
QSize sliderSize(const VisualStyle& visual);
constexpr int narrowestSlider = 90;

// The scroll bar is a thumb over the edge of the content: no track, no arrows, no room of its own.

constexpr int scrollBarExtent = 14; ///< how far from the edge the pointer reaches the thumb
constexpr int scrollThumbMinimumLength = 32;

/// The thumb and the two page areas before and after it; every other part is empty.
QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part);

/// `thumb` is the whole reach of the thumb across the bar; what is painted is narrower.
void paintScrollBar(QPainter& painter, const VisualStyle& visual, const QStyleOptionComplex& bar,
                    const QRect& thumb);

} // namespace trovell
