// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <QPointer>

namespace trovell {

class VisualStyle;

/// Marks an action as one that destroys something; menus show it in the destructive colours.
void setDestructive(QAction& action, bool isDestructive);
bool isDestructive(const QAction& action);

/// A menu with rounded corners and a painted shadow. With QAbstractButton-like classes of this
/// folder use their `setMenu`; elsewhere open it with one of the functions below, which place the
/// visible panel, not the larger window around it, and keep it on the screen. Never exec().
class PopupMenu : public QMenu {
    Q_OBJECT

public:
    explicit PopupMenu(const VisualStyle& visual, QWidget* parent = nullptr);

    QAction* addDestructiveAction(const QString& text);

    /// For context menus: the panel's upper leading corner at a point on the screen.
    void openAt(const QPoint& screenPoint);
    /// For list boxes: over the control `box` (screen coordinates), at least as wide, its `current`
    /// action over the middle of the box and their trailing edges together.
    void openOver(const QRect& box, QAction* current);
    /// What openAtAnchor opens below of, or above where there is no room. `edge` says which edges
    /// meet: leading (Qt::AlignLeft) or trailing (Qt::AlignRight).
    void setAnchor(QWidget* anchor, Qt::Alignment edge);
    void openAtAnchor();

    /// Width of the transparent border around the panel.
    int shadowMargin() const { return contentsMargins().left(); }

protected:
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QSize panelSize() const;
    QPoint anchoredPosition() const;
    void placePanel(const QPoint& topLeft);

    QPointer<QWidget> m_anchor;
    Qt::Alignment m_anchorEdge = Qt::AlignLeft;
    std::optional<QPoint> m_requestedPanel;
};

} // namespace trovell
