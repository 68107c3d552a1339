// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/FocusRing.h"
#include "views/style/VisualStyle.h"

#include <QSlider>

namespace trovell {

/// A horizontal slider of whole steps with a tick under each and a label at either end. Arrow keys
/// step by 1; a press anywhere on the track takes the knob there.
class Slider : public QSlider, public FocusOutlined {
    Q_OBJECT

public:
    /// `name` is the accessible name. The ends show `lowLabel` and `highLabel`.
    Slider(const VisualStyle& visual, const QString& name, int minimum, int maximum,
           const QString& lowLabel, const QString& highLabel, QWidget* parent = nullptr);

    void setEndLabels(const QString& low, const QString& high);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// The ring goes around the knob.
    FocusOutline focusOutline() const override;

    /// Horizontal middle of the knob at a value, in widget coordinates.
    double positionOf(int value) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void sliderChange(SliderChange change) override;
    bool event(QEvent* event) override;

private:
    QRectF trackRect() const;
    QRectF knobRect() const;
    int valueAt(double x) const;
    void paintLabels(QPainter& painter) const;
    void paintTrack(QPainter& painter) const;
    void paintTicks(QPainter& painter) const;
    void paintKnob(QPainter& painter) const;

    const VisualStyle& m_visual;
    QString m_lowLabel;
    QString m_highLabel;
};

} // namespace trovell
