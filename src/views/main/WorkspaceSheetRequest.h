// SPDX-License-Identifier: MIT
//
// A sheet that the main window shows or is asked to show. A value; main thread.
#pragma once

#include "model/TrovellWorkspace.h"

#include <QPointer>

namespace trovell {

struct WorkspaceSheetRequest {
    enum class Kind {
        edit,
        updateLayout,
        saveAsNew,
        rename,
        newEmpty, ///< of no workspace, like the next one
        captureCurrent,
    };

    Kind kind;
    QPointer<TrovellWorkspace> workspace = {};
    /// Of its own for every request, so that the end of one sheet is not taken for that of the
    /// next of the same kind.
    QUuid id = QUuid::createUuid();
};

} // namespace trovell
