// SPDX-License-Identifier: MIT
//
// What was last done successfully, and to which workspace. A plain value; any thread.
#pragma once

#include "support/Message.h"

#include <QUuid>

namespace trovell {

struct WorkspaceNotice {
    QUuid workspaceID;
    Message message;

    bool operator==(const WorkspaceNotice&) const = default;
};

} // namespace trovell
