// SPDX-License-Identifier: MIT

#pragma once

#include <QProgressBar>

class QVariantAnimation;

namespace trovell {

class VisualStyle;

/// A row of small bars, one for each step, of which that of the current step is long. To assistive
/// tools it is a progress bar; give it an accessible name. Main thread.
class StepIndicator : public QProgressBar {
    Q_OBJECT

public:
    StepIndicator(const VisualStyle& visual, int stepCount, QWidget* parent = nullptr);

    /// `step` counts from 0.
    void setStep(int step, bool isAnimated);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// How much the bar of `step` is the current one, 0 to 1.
    [[nodiscard]] double share(int step) const;

    const VisualStyle& m_visual;
    QVariantAnimation* m_change;
    int m_stepCount;
    int m_step = 0;
    int m_previousStep = 0;
};

} // namespace trovell
