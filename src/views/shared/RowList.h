// SPDX-License-Identifier: MIT
//
// The product's lists: painted rows of one height over a model, so that a thousand of them scroll
// as smoothly as ten. Main thread.
#pragma once

#include "views/shared/RowDelegate.h"
#include "views/style/RowPainting.h"

#include <QBasicTimer>
#include <QListView>

class QScrollArea;

namespace trovell {

struct ViewEnvironment;

class RowList : public QListView {
    Q_OBJECT

public:
    RowList(const ViewEnvironment& environment, const RowLook& look, QWidget* parent = nullptr);

    /// Rows can be dragged, which a RowModel tells, and moved with Alt+Up and Alt+Down. A click is
    /// told when the button is released, so that dragging a row leaves the selection alone.
    void setReorderable();

    /// As high as all its rows: the page around it scrolls. With the model set already.
    void setWholeHeight();
    /// The page that scrolls the list; null when none does.
    [[nodiscard]] QScrollArea* pageAround() const;

    /// The visible row in the viewport's coordinates, without the gaps around it.
    [[nodiscard]] QRect rowRect(const QModelIndex& index) const;
    /// Whether the row is being dragged.
    [[nodiscard]] bool isLifted(const QModelIndex& index) const { return index == m_liftedRow; }
    [[nodiscard]] RowState stateOf(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const;
    /// Leaves the row's place faint while it is dragged. Invalid for none.
    void setLiftedRow(const QModelIndex& index);
    /// The row looks hovered, wherever the mouse is. Invalid for none.
    void setMarkedRow(const QModelIndex& index);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// By key, `step` places down.
    void moveRequested(int step);

protected:
    void startDrag(Qt::DropActions actions) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void scrollPage();
    [[nodiscard]] QPixmap pictureOf(const QModelIndex& index, int margin);

    const VisualStyle& m_visual;
    RowDelegate* m_delegate;
    bool m_isReorderable = false;
    bool m_hasWholeHeight = false;
    QPersistentModelIndex m_pressedRow;
    QPoint m_pressedPlace;
    QPersistentModelIndex m_liftedRow;
    QPersistentModelIndex m_markedRow;
    QBasicTimer m_pageScrolling;
};

} // namespace trovell
