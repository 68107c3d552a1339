// SPDX-License-Identifier: MIT
//
// What the main window can be asked to do with a workspace. A plain value; any thread.
#pragma once

namespace trovell {

enum class WorkspaceAction {
    start,
    edit,
    updateLayout,
    saveAsNew,
    duplicate,
    rename,
    clearLayout,
    remove,
};

} // namespace trovell
