// SPDX-License-Identifier: MIT
//
// Starts a workspace: opens its items in order, then waits for the saved windows of all its
// applications at once and moves them into place, brings the applications forward and publishes a
// report. The one service behind every way of starting a workspace. Main thread.
#pragma once

#include "launch/ResourceOpeningService.h"
#include "results/WorkspaceLaunchReport.h"
#include "support/Clock.h"
#include "windows/WindowRestoreService.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QPointer>
#include <QPromise>

#include <chrono>
#include <memory>

namespace trovell {

class TrovellWorkspace;
class WorkspaceItem;

class WorkspaceLauncher final : public QObject {
    Q_OBJECT

public:
    WorkspaceLauncher(ResourceOpeningService& resourceOpener, WindowRestoreService& windowRestorer,
                      WindowSystem& windowSystem, Clock& clock);

    /// True from the start of a launch until its report is published.
    [[nodiscard]] bool isLaunching() const { return m_launchingWorkspaceID.has_value(); }
    [[nodiscard]] const std::optional<WorkspaceLaunchReport>& latestReport() const
    {
        return m_latestReport;
    }
    /// The workspace that is being launched; none between launches.
    [[nodiscard]] std::optional<QUuid> launchingWorkspaceID() const
    {
        return m_launchingWorkspaceID;
    }
    /// The workspace of `latestReport`.
    [[nodiscard]] std::optional<QUuid> latestWorkspaceID() const { return m_latestWorkspaceID; }

    /// Ignored while a launch runs, and, for a workspace without layout, in the first seconds after
    /// its last start: a second press opens nothing twice. Every enabled item and every enabled
    /// placement ends in exactly one line of the report. A timeout below one second, or none at
    /// all, counts as one second, one above an hour as an hour. The workspace may be deleted
    /// meanwhile.
    QCoro::Task<> start(TrovellWorkspace* workspace, bool accessibilityTrusted,
                        double timeoutSeconds);

    /// Ends the launch early: what was opened stays, the report says what was left out. Nothing
    /// between launches.
    void cancel();

    /// Whether the last launch moved windows that `putWindowsBack` would bring back. Changes with
    /// `latestReport`.
    [[nodiscard]] bool canPutWindowsBack() const { return m_lastRun && !isLaunching(); }
    /// Everything that the last launch moved goes back to where it stood, with its states and
    /// virtual desktop; what was opened stays. The outcome is a report like that of a launch.
    QCoro::Task<> putWindowsBack();

Q_SIGNALS:
    void isLaunchingChanged(bool isLaunching);
    void latestWorkspaceIDChanged();
    void latestReportChanged();

private:
    using Results = QList<LaunchResult>;
    using Snapshots = QList<WindowPlacementSnapshot>;
    using Items = QList<QPointer<WorkspaceItem>>;
    using Run = std::shared_ptr<RestoreRun>;
    using Time = std::chrono::steady_clock::time_point;

    void begin(const QUuid& workspaceID);
    [[nodiscard]] bool isSecondPress(const QUuid& workspaceID) const;
    [[nodiscard]] QCoro::Task<Results> openItems(Items items);
    [[nodiscard]] QCoro::Task<LaunchResult> openItem(QPointer<WorkspaceItem> item);
    [[nodiscard]] QCoro::Task<Results> restoreWindows(Snapshots snapshots, Run run, Time deadline);
    [[nodiscard]] QCoro::Task<Results> restoreApplicationWindows(Snapshots pending, Run run,
                                                                 Time deadline);
    /// Waits for the work until that time, or until the launch is cancelled. True when it is done.
    template <class Result>
    [[nodiscard]] QCoro::Task<bool> isDoneBy(Time time, QFuture<Result> work);
    void setLaunching(std::optional<QUuid> workspaceID);
    void publish(const QUuid& workspaceID, Results results);

    ResourceOpeningService& m_resourceOpener;
    WindowRestoreService& m_windowRestorer;
    WindowSystem& m_windowSystem;
    Clock& m_clock;
    std::optional<QUuid> m_launchingWorkspaceID;
    /// Finished by `cancel`.
    QPromise<void> m_cancelling;
    std::optional<WorkspaceLaunchReport> m_latestReport;
    std::optional<QUuid> m_latestWorkspaceID;
    /// Of the last launch, if it moved windows.
    std::shared_ptr<const RestoreRun> m_lastRun;
    /// When the last launch began.
    std::optional<Time> m_lastStart;
};

} // namespace trovell
