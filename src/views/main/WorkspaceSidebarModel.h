// SPDX-License-Identifier: MIT
//
// The workspaces as rows for the sidebar. Main thread.
#pragma once

#include "views/main/MainEnvironment.h"

#include <QAbstractListModel>
#include <QPointer>

namespace trovell {

class TrovellWorkspace;

/// Follows the contents of its workspaces by itself, once per turn of the event loop; which ones
/// there are is told by `setWorkspaces`.
class WorkspaceSidebarModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit WorkspaceSidebarModel(const MainEnvironment& environment, QObject* parent);

    /// Resets the model when they differ from those it has.
    void setWorkspaces(const QList<TrovellWorkspace*>& workspaces);

    /// Null where there is no such row, and for a record that is gone.
    [[nodiscard]] TrovellWorkspace* workspaceAt(const QModelIndex& index) const;
    /// Null where there is none.
    [[nodiscard]] QUuid idAt(const QModelIndex& index) const;
    /// Invalid where there is none.
    [[nodiscard]] QModelIndex indexOf(const QUuid& id) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// The name, and for assistive tools all that the row says.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    void scheduleContentUpdate();
    void updateContents();

    const MainEnvironment m_environment;
    QList<QPointer<TrovellWorkspace>> m_workspaces;
    bool m_isUpdateScheduled = false;
};

} // namespace trovell
