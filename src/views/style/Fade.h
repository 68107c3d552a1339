// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
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

/// How far the pointer has come in over a control: 0 at rest, and while it is disabled, to 1.
class HoverFade : public QObject {
    Q_OBJECT

public:
    HoverFade(QWidget& control, const VisualStyle& visual);

    double value() const { return m_fade.value(); }

protected:
    bool eventFilter(QObject* control, QEvent* event) override;

private:
    Fade m_fade;
};

} // namespace trovell
