// SPDX-License-Identifier: MIT
//
// The content of the main window: all workspaces beside the selected one, and every command on
// them. Main thread.
#pragma once

#include "model/StoreError.h"
#include "support/Expected.h"
#include "views/main/MainEnvironment.h"
#include "views/main/WorkspaceAlertRequest.h"
#include "views/main/WorkspaceNotice.h"
#include "views/main/WorkspaceSheetRequest.h"
#include "views/main/WorkspaceSidebar.h"

namespace trovell {

class Alert;
class Sheet;
class WorkspaceDetailColumn;

/// From its first appearance on it keeps the global shortcuts in step with the workspaces. A failed
/// write is rolled back and reported in an alert, and so is, once, a failure of the store at any
/// other time.
class MainWorkspaceView : public QWidget {
    Q_OBJECT

public:
    explicit MainWorkspaceView(const MainEnvironment& environment, QWidget* parent = nullptr);

    /// The workspace in the detail column; null exactly while there are no workspaces.
    [[nodiscard]] const QUuid& selection() const { return m_selection; }
    [[nodiscard]] const std::optional<WorkspaceNotice>& notice() const { return m_notice; }
    [[nodiscard]] const std::optional<WorkspaceSheetRequest>& activeSheet() const
    {
        return m_activeSheet;
    }
    [[nodiscard]] const std::optional<WorkspaceAlertRequest>& activeAlert() const
    {
        return m_activeAlert;
    }

    /// Opens the sheet over the window. Nothing happens while another one is open: a sheet only
    /// ever closes by itself.
    void present(const WorkspaceSheetRequest& request);
    /// Opens the alert over everything; it takes the place of one that is open.
    void present(const WorkspaceAlertRequest& request);

Q_SIGNALS:
    void settingsRequested();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void connectSidebar();
    void connectDetail();
    void connectStore();

    void select(const QUuid& id);
    void reconcileSelection();
    void refresh();
    void registerHotKeys();
    void perform(WorkspaceAction action, const QUuid& id);

    void duplicate(const TrovellWorkspace& workspace);
    void remove(TrovellWorkspace& workspace);
    void clearLayout(TrovellWorkspace& workspace);
    /// Whether the write succeeded; tells the user if not.
    template <class Value> bool succeeded(const Expected<Value, StoreError>& written);
    void reportFailure(StoreError error);
    void reportInBackground(StoreError error);

    [[nodiscard]] Sheet* makeSheet(const WorkspaceSheetRequest& request);
    void finishSheet(TrovellWorkspace* workspace, const Message& notice);
    [[nodiscard]] Alert* openAlert(const WorkspaceAlertRequest& request);
    void answerAlert(const WorkspaceAlertRequest& request);
    [[nodiscard]] QWidget* frontWindow() const;

    const MainEnvironment m_environment;
    WorkspaceSidebar* m_sidebar;
    WorkspaceDetailColumn* m_column;
    QUuid m_selection;
    std::optional<WorkspaceNotice> m_notice;
    std::optional<WorkspaceSheetRequest> m_activeSheet;
    std::optional<WorkspaceAlertRequest> m_activeAlert;
    QPointer<Alert> m_alert;
    /// The last failure that was reported, until a write succeeds.
    std::optional<StoreError> m_reportedFailure;
    bool m_hasAppeared = false;
};

} // namespace trovell
