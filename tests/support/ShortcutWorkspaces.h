// SPDX-License-Identifier: MIT
//
// Workspaces of which only the shortcuts matter. Main thread.
#pragma once

#include "model/TrovellWorkspace.h"
#include "model/WorkspaceChoices.h"

#include <memory>
#include <vector>

namespace trovell {

class ShortcutWorkspaces {
public:
    /// One workspace for each place in the list of shortcuts on offer; place 0 is no shortcut.
    explicit ShortcutWorkspaces(const QList<int>& shortcutIndexes)
    {
        for (const int index : shortcutIndexes) {
            m_owned.push_back(std::make_unique<TrovellWorkspace>(WorkspaceValues{}));
            m_owned.back()->setShortcut(shortcuts()[index]);
        }
    }

    TrovellWorkspace& operator[](size_t index) const { return *m_owned[index]; }
    QUuid id(size_t index) const { return m_owned[index]->id(); }

    QList<TrovellWorkspace*> list() const
    {
        QList<TrovellWorkspace*> result;
        for (const auto& workspace : m_owned)
            result.append(workspace.get());
        return result;
    }

private:
    std::vector<std::unique_ptr<TrovellWorkspace>> m_owned;
};

} // namespace trovell
