// SPDX-License-Identifier: MIT
//
// What was last done successfully, and to which workspace. A plain value; any thread.
#pragma once

#include <QString>
#include <QUuid>

namespace trovell {

struct WorkspaceNotice {
    QUuid workspaceID;
    /// In the product's words, see `Localization::shownNotice`.
    QString message;

    bool operator==(const WorkspaceNotice&) const = default;
};

} // namespace trovell
