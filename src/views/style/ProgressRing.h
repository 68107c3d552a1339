// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace trovell {

class VisualStyle;

/// A turning ring for work of unknown length. It wakes nobody while it is hidden and stands still
/// while animation is reduced.
class ProgressRing : public QWidget {
    Q_OBJECT

public:
    /// `name` is the accessible name, such as what is being waited for.
    ProgressRing(const VisualStyle& visual, const QString& name, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    bool isTurning() const { return m_timer.isActive(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    const VisualStyle& m_visual;
    QBasicTimer m_timer;
    QElapsedTimer m_clock;
};

} // namespace trovell
