// SPDX-License-Identifier: MIT
//
// The workspaces as rows for the sidebar. Main thread.
#pragma once

#include "views/main/MainEnvironment.h"
#include "views/shared/RowModel.h"

#include <QPointer>

namespace trovell {

class TrovellWorkspace;

/// Follows the contents of its workspaces by itself, once per turn of the event loop, and reads no
/// items; which workspaces there are is told by `setWorkspaces`.
class WorkspaceSidebarModel : public RowModel {
    Q_OBJECT

public:
    explicit WorkspaceSidebarModel(const MainEnvironment& environment, QObject* parent);

    /// Resets the model when they differ from those it has.
    void setWorkspaces(const QList<TrovellWorkspace*>& workspaces);

    [[nodiscard]] QUuid idAt(const QModelIndex& index) const override;
    /// Invalid where there is none.
    [[nodiscard]] QModelIndex indexOf(const QUuid& id) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    void scheduleContentUpdate();
    void updateContents();

    const MainEnvironment m_environment;
    QList<QPointer<TrovellWorkspace>> m_workspaces;
    bool m_isUpdateScheduled = false;
};

} // namespace trovell
