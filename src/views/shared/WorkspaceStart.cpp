// SPDX-License-Identifier: MIT

#include "views/shared/WorkspaceStart.h"

#include "app/AppDependencies.h"
#include "model/TrovellWorkspace.h"

#include <QPointer>

namespace trovell {

QCoro::Task<> startWorkspace(AppDependencies& dependencies, TrovellWorkspace& workspace)
{
    const QPointer<TrovellWorkspace> guard(&workspace);
    const bool isTrusted = co_await dependencies.accessibility().refresh();
    if (guard)
        dependencies.launcher().start(guard, isTrusted, dependencies.preferences().launchTimeout());
}

} // namespace trovell
