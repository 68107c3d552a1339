// SPDX-License-Identifier: MIT
//
// The launch items of the editor as rows that are reordered by dragging, with Alt+Up and Alt+Down,
// or by dropping an item's identifier on a row. Main thread.
#pragma once

#include "views/editor/EditorItemModel.h"
#include "views/shared/RowList.h"
#include "views/shared/ViewEnvironment.h"

#include <QBasicTimer>
#include <QPointer>

namespace trovell {

class EditorItemRow;

/// The controls of many items are made a few at a time between other events; `items` is complete
/// at once.
class EditorItemList : public RowList {
    Q_OBJECT

public:
    /// `tabAnchor` is the control before the first row in the tab order; it gets the focus when no
    /// row is left.
    EditorItemList(const ViewEnvironment& environment, const QList<EditableWorkspaceItem>& items,
                   QWidget* tabAnchor, QWidget* parent = nullptr);

    [[nodiscard]] const QList<EditableWorkspaceItem>& items() const { return m_model->items(); }
    /// Null when there is none.
    [[nodiscard]] const EditableWorkspaceItem* item(const QUuid& id) const;

    /// Scrolls to the new rows.
    void append(const QList<EditableWorkspaceItem>& items);
    /// Puts the item in the place of the one with its id; nothing when that is gone.
    void replace(const EditableWorkspaceItem& item);
    void remove(const QUuid& id);

Q_SIGNALS:
    void countChanged();
    void locateAgainRequested(const QUuid& id);
    void optionsRequested(const QUuid& id);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void buildSomeRows();
    EditorItemRow* makeRow(const EditableWorkspaceItem& item);
    void revealEnd();
    /// Null when there is none, or not yet.
    [[nodiscard]] EditorItemRow* controlsOf(int row) const;
    /// Of a row or something in it.
    [[nodiscard]] int focusedRow() const;
    void move(int source, int target);
    void moveFocusedRow(int step);

    const ViewEnvironment m_environment;
    EditorItemModel* m_model;
    /// How many of the first rows have their controls.
    int m_builtCount = 0;
    QPointer<QWidget> m_tabAnchor;
    QBasicTimer m_building;
};

} // namespace trovell
