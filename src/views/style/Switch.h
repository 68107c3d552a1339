// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Fade.h"
#include "views/style/FocusRing.h"
#include "views/style/VisualStyle.h"

#include <QCheckBox>

namespace trovell {

/// A settings row: the label at the leading edge, wrapped where it is long, the switch at the
/// trailing edge. A click anywhere in the row toggles it. To assistive tools it is a check box
/// named by its label. An empty label gives the bare switch.
class Switch : public QCheckBox, public FocusOutlined {
    Q_OBJECT

public:
    Switch(const VisualStyle& visual, const QString& label, QWidget* parent = nullptr);

    void setLabel(const QString& label);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return !m_label.isEmpty(); }
    int heightForWidth(int width) const override;
    FocusOutline focusOutline() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    QSize trackSize() const;
    QRect trackRect() const;
    int labelRoom(int width) const;
    void paintSwitch(QPainter& painter) const;

    const VisualStyle& m_visual;
    QString m_label;
    Fade m_knob;
};

} // namespace trovell
