// SPDX-License-Identifier: MIT
//
// How every surface starts a workspace. Main thread.
#pragma once

#include <QCoro/QCoroTask>

namespace trovell {

class AppDependencies;
class TrovellWorkspace;

/// Looks at the window permission afresh and hands the workspace to the launcher, with the timeout
/// as it is set now. Returns at once; the launcher's published state tells the rest.
QCoro::Task<> startWorkspace(AppDependencies& dependencies, TrovellWorkspace& workspace);

} // namespace trovell
