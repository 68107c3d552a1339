// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

class QVariantAnimation;
class QWidget;

namespace trovell {

class VisualStyle;

/// A value between 0 and 1 that moves in time and repaints its widget on the way: how far a hover
/// colour has come in, where a switch's knob is. A member of the widget it repaints.
class Fade {
public:
    Fade(QWidget& widget, const VisualStyle& visual, int milliseconds);

    double value() const { return m_value; }
    /// Moves towards `target`; at once while animation is reduced or the widget is not shown.
    void moveTo(double target);
    void jumpTo(double target);

private:
    QWidget& m_widget;
    const VisualStyle& m_visual;
    int m_milliseconds;
    double m_value = 0;
    QPointer<QVariantAnimation> m_animation;
};

} // namespace trovell
