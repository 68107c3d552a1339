// SPDX-License-Identifier: MIT
//
// The kinds of launch item. Stored as text; plain values, any thread.
#pragma once

#include <QList>
#include <QString>

namespace trovell {

enum class WorkspaceItemType { application, folder, file, webLink };

/// In the order in which the user is offered them.
[[nodiscard]] const QList<WorkspaceItemType>& allWorkspaceItemTypes();

[[nodiscard]] QString rawValue(WorkspaceItemType type);

/// `file` for any text that is not exactly a raw value, so that an item of a kind this version does
/// not know can still be shown and opened.
[[nodiscard]] WorkspaceItemType workspaceItemType(const QString& text);

} // namespace trovell
