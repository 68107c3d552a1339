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

#include <stop_token>

namespace trovell {

class TrovellWorkspace;
class WorkspaceItem;

class WorkspaceLauncher final : public QObject {
    Q_OBJECT

public:
    WorkspaceLauncher(ResourceOpeningService& resourceOpener, WindowRestoreService& windowRestorer,
                      WindowSystem& windowSystem, Clock& clock);

    /// True from the start of a launch until its report is published.
    [[nodiscard]] bool isLaunching() const { return m_isLaunching; }
    [[nodiscard]] const std::optional<WorkspaceLaunchReport>& latestReport() const
    {
        return m_latestReport;
    }
    /// The workspace of `latestReport`.
    [[nodiscard]] std::optional<QUuid> latestWorkspaceID() const { return m_latestWorkspaceID; }

    /// Ignored while a launch runs. Every enabled item and every enabled placement ends in exactly
    /// one line of the report. A timeout below one second, or none at all, counts as one second.
    /// The workspace may be deleted meanwhile. `stop` ends the waiting for windows early.
    QCoro::Task<> start(TrovellWorkspace* workspace, bool accessibilityTrusted,
                        double timeoutSeconds, std::stop_token stop = {});

Q_SIGNALS:
    void isLaunchingChanged(bool isLaunching);
    void latestWorkspaceIDChanged();
    void latestReportChanged();

private:
    using Results = QList<LaunchResult>;
    using Snapshots = QList<WindowPlacementSnapshot>;
    using Items = QList<QPointer<WorkspaceItem>>;

    [[nodiscard]] QCoro::Task<Results> openItems(Items items);
    [[nodiscard]] QCoro::Task<Results> restoreWindows(Snapshots snapshots, double timeoutSeconds,
                                                      std::stop_token stop);
    [[nodiscard]] QCoro::Task<Results>
    restoreApplicationWindows(Snapshots pending, double timeoutSeconds, std::stop_token stop);
    void setLaunching(bool isLaunching);
    void publish(const QUuid& workspaceID, Results results);

    ResourceOpeningService& m_resourceOpener;
    WindowRestoreService& m_windowRestorer;
    WindowSystem& m_windowSystem;
    Clock& m_clock;
    bool m_isLaunching = false;
    std::optional<WorkspaceLaunchReport> m_latestReport;
    std::optional<QUuid> m_latestWorkspaceID;
};

} // namespace trovell
