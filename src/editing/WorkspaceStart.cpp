// SPDX-License-Identifier: MIT

#include "editing/WorkspaceStart.h"

#include "launch/WorkspaceLauncher.h"
#include "windows/AccessibilityPermissionManager.h"

namespace trovell {

WorkspaceStart::WorkspaceStart(AccessibilityPermissionManager& accessibility,
                               WorkspaceLauncher& launcher, std::function<double()> timeoutSeconds)
    : m_accessibility(accessibility), m_launcher(launcher),
      m_timeoutSeconds(std::move(timeoutSeconds))
{
}

void WorkspaceStart::operator()(TrovellWorkspace& workspace) const
{
    m_accessibility.refresh();
    m_launcher.start(&workspace, m_accessibility.isTrusted(), m_timeoutSeconds());
}

} // namespace trovell
