// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/FocusRing.h"
#include "views/style/VisualStyle.h"

#include <QCheckBox>

namespace trovell {

/// A check box with its label beside it; the whole widget toggles it. The label is plain text (no
/// mnemonics) and the accessible name. With an empty label only the box is shown: give an
/// accessible name and let the label shown elsewhere toggle it (forwardClicks).
class CheckBox : public QCheckBox, public FocusOutlined {
    Q_OBJECT

public:
    CheckBox(const VisualStyle& visual, const QString& label, TextRole role = TextRole::callout,
             QWidget* parent = nullptr);

    void setLabel(const QString& label);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    FocusOutline focusOutline() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    bool event(QEvent* event) override;

private:
    QRect boxRect() const;
    void paintBoxAndMark(QPainter& painter) const;

    const VisualStyle& m_visual;
    QString m_label;
    TextRole m_role;
};

/// Makes a click on `label` a click on `button`, as for the row a check box belongs to.
void forwardClicks(QWidget& label, QAbstractButton& button);

} // namespace trovell
