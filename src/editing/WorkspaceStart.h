// SPDX-License-Identifier: MIT
//
// How every surface starts a workspace. Main thread.
#pragma once

#include <QCoro/QCoroTask>

#include <functional>

namespace trovell {

class AccessibilityPermissionManager;
class TrovellWorkspace;
class WorkspaceLauncher;

class WorkspaceStart {
public:
    /// The services outlive it. `timeoutSeconds` is asked at every start.
    WorkspaceStart(AccessibilityPermissionManager& accessibility, WorkspaceLauncher& launcher,
                   std::function<double()> timeoutSeconds);

    /// Looks at the window permission afresh and hands the workspace to the launcher. Returns at
    /// once; the launcher's published state tells the rest.
    QCoro::Task<> operator()(TrovellWorkspace& workspace) const;

private:
    AccessibilityPermissionManager& m_accessibility;
    WorkspaceLauncher& m_launcher;
    std::function<double()> m_timeoutSeconds;
};

} // namespace trovell
