// SPDX-License-Identifier: MIT
//
// What the capture sheet is opened for. A plain value; any thread.
#pragma once

namespace trovell {

enum class CapturePurpose {
    create,    ///< a new workspace from scratch
    update,    ///< the window layout of a workspace is replaced
    saveAsNew, ///< a new workspace that starts from another one
};

} // namespace trovell
