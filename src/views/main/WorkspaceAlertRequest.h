// SPDX-License-Identifier: MIT
//
// An alert that the main window shows or is asked to show. A value; main thread.
#pragma once

#include "model/TrovellWorkspace.h"
#include "support/Message.h"

#include <QPointer>

namespace trovell {

struct WorkspaceAlertRequest {
    enum class Kind { deleteWorkspace, clearLayout, error };

    Kind kind;
    /// Of `deleteWorkspace` and `clearLayout`.
    QPointer<TrovellWorkspace> workspace = {};
    /// Of `error`: why it failed, in the product's words.
    Message reason = {};
    QUuid id = QUuid::createUuid();
};

} // namespace trovell
