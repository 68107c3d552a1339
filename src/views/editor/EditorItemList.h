// SPDX-License-Identifier: MIT
//
// The launch items of the editor as rows that are reordered by dragging, with Alt+Up and Alt+Down,
// or by dropping an item's identifier on a row. Main thread.
#pragma once

#include "editing/EditableWorkspaceItem.h"
#include "views/shared/RowDragging.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/Group.h"

#include <QBasicTimer>
#include <QPointer>

namespace trovell {

class EditorItemRow;

/// Rows for many items are made a few at a time between other events; `items` is complete at once.
class EditorItemList : public ListGroup, private ReorderableRows {
    Q_OBJECT

public:
    /// `tabAnchor` is the control before the first row in the tab order; it gets the focus when no
    /// row is left.
    EditorItemList(const ViewEnvironment& environment, const QList<EditableWorkspaceItem>& items,
                   QWidget* tabAnchor, QWidget* parent = nullptr);
    ~EditorItemList() override;

    [[nodiscard]] const QList<EditableWorkspaceItem>& items() const { return m_items; }
    /// Null when there is none.
    [[nodiscard]] const EditableWorkspaceItem* item(const QUuid& id) const;

    /// Scrolls to the new rows.
    void append(const QList<EditableWorkspaceItem>& items);
    /// Puts the item in the place of the one with its id; nothing when that is gone.
    void replace(const EditableWorkspaceItem& item);
    void remove(const QUuid& id);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void countChanged();
    void locateAgainRequested(const QUuid& id);

protected:
    void timerEvent(QTimerEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QUuid rowAt(const QPoint& position) const override;
    [[nodiscard]] QRect rectOf(const QUuid& id) const override;
    [[nodiscard]] QPixmap pictureOf(const QUuid& id) const override;
    void setLifted(const QUuid& id, bool isLifted) override;
    /// The item dragged moves immediately before the target; nothing moves when it is none of
    /// these.
    void dropOn(const QUuid& target, const QUuid& dragged) override;

    void buildSomeRows();
    EditorItemRow* makeRow(const EditableWorkspaceItem& item);
    [[nodiscard]] int rowHeight() const;
    [[nodiscard]] QRect rowRect(qsizetype index) const;
    void placeRows();
    void revealEnd();
    [[nodiscard]] qsizetype indexOf(const QUuid& id) const;
    /// Null when there is none, or not yet.
    [[nodiscard]] EditorItemRow* rowOf(const QUuid& id) const;
    void move(qsizetype source, qsizetype target);
    void moveFocusedRow(int step);

    const ViewEnvironment m_environment;
    QList<EditableWorkspaceItem> m_items;
    /// Of the first items, in their order.
    QList<EditorItemRow*> m_rows;
    QPointer<QWidget> m_tabAnchor;
    QBasicTimer m_building;
    RowDragging m_dragging;
};

} // namespace trovell
