// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

namespace trovell {

class VisualStyle;

/// A one-line text field. `name` is its accessible name; the placeholder is only a hint and no
/// name.
class TextField : public QLineEdit {
    Q_OBJECT

public:
    TextField(const VisualStyle& visual, const QString& name, const QString& placeholder = {},
              QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintPlaceholder();

    const VisualStyle& m_visual;
};

} // namespace trovell
