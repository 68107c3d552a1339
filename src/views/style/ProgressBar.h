// SPDX-License-Identifier: MIT

#pragma once

#include <QProgressBar>

namespace trovell {

class VisualStyle;

/// A bar that fills up for work of known length. Use it as a QProgressBar; it shows no text.
class ProgressBar : public QProgressBar {
    Q_OBJECT

public:
    /// `name` is the accessible name, such as what is being waited for.
    ProgressBar(const VisualStyle& visual, const QString& name, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const VisualStyle& m_visual;
};

} // namespace trovell
