// SPDX-License-Identifier: MIT
//
// The fixed lists from which a workspace's look and global shortcut are picked, and the rule that
// two workspaces may not share a shortcut. Main thread.
#pragma once

#include "model/ShortcutDefinition.h"
#include "support/Message.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <optional>

namespace trovell {

class TrovellWorkspace;

/// Symbol names; the first one is the default.
[[nodiscard]] const QStringList& symbols();

/// Accent identifiers; the first one is the default.
[[nodiscard]] const QStringList& accents();

/// The shortcuts on offer; the first entry stands for no shortcut and is the default.
[[nodiscard]] const QList<std::optional<ShortcutDefinition>>& shortcuts();

/// As a keyboard of this platform names it: "Ctrl+Alt+1" in English for the stored "⌃⌥1". One that
/// is not on offer shows as stored.
[[nodiscard]] Message displayName(const ShortcutDefinition& shortcut);

/// What a sheet keeps while the user picks. The defaults are those of a new workspace.
struct WorkspaceChoices {
    /// May be one that is not in the lists, as stored.
    QString symbolName = symbols().first();
    QString accentIdentifier = accents().first();
    /// Index into `shortcuts`.
    qsizetype shortcutIndex = 0;

    [[nodiscard]] std::optional<ShortcutDefinition> shortcut() const;

    bool operator==(const WorkspaceChoices&) const = default;
};

/// The choices a sheet starts with. A shortcut that is not on offer shows as none.
[[nodiscard]] WorkspaceChoices choicesOf(const TrovellWorkspace& workspace);

/// Whether a workspace other than the edited one has exactly the chosen shortcut. `editedId` is
/// none while a new workspace is made.
[[nodiscard]] bool shortcutConflict(const ShortcutDefinition& chosen,
                                    const std::optional<QUuid>& editedId,
                                    const QList<TrovellWorkspace*>& workspaces);

/// What the user reads when there is a conflict.
[[nodiscard]] Message shortcutConflictText();

} // namespace trovell
