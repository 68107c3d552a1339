// SPDX-License-Identifier: MIT

#include "editing/WorkspaceStart.h"

#include "launch/WorkspaceLauncher.h"
#include "model/TrovellWorkspace.h"
#include "windows/AccessibilityPermissionManager.h"

#include <QPointer>

namespace trovell {

WorkspaceStart::WorkspaceStart(AccessibilityPermissionManager& accessibility,
                               WorkspaceLauncher& launcher, std::function<double()> timeoutSeconds)
    : m_accessibility(accessibility), m_launcher(launcher),
      m_timeoutSeconds(std::move(timeoutSeconds))
{
}

QCoro::Task<> WorkspaceStart::operator()(TrovellWorkspace& workspace) const
{
    const QPointer<TrovellWorkspace> guard(&workspace);
    const bool isTrusted = co_await m_accessibility.refresh();
    if (guard)
        m_launcher.start(guard, isTrusted, m_timeoutSeconds());
}

} // namespace trovell
