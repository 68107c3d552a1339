// SPDX-License-Identifier: MIT

#pragma once

#include <QComboBox>
#include <QMenu>
#include <QPointer>

namespace trovell {

class VisualStyle;

/// A choice of one of several texts: a combo box whose list opens as a menu with a check mark. Use
/// it as a QComboBox (`addItem`, `currentIndexChanged`, `activated` for choices of the person
/// alone); the view of QComboBox is never shown.
class Picker : public QComboBox {
    Q_OBJECT

public:
    /// `name` is the accessible name; `width` the least width in logical pixels at factor 1.
    Picker(const VisualStyle& visual, const QString& name, int width, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    bool isOpen() const { return m_menu != nullptr; }
    void showPopup() override;
    void hidePopup() override;

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QMenu* makeMenu();
    void choose(int index);

    const VisualStyle& m_visual;
    int m_leastWidth;
    QPointer<QMenu> m_menu;
};

} // namespace trovell
