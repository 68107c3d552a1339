// SPDX-License-Identifier: MIT
//
// Turns the shortcuts of workspaces into system-wide hot keys and answers their presses. Main
// thread only.
#pragma once

#include "services/HotKeySystem.h"

#include <QFuture>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QUuid>

#include <functional>

namespace trovell {

class TrovellWorkspace;

class GlobalHotKeyManager final : public QObject {
    Q_OBJECT

public:
    using Trigger = std::function<void(const QUuid& workspaceId)>;

    /// `system` outlives the manager. No hot key is active yet.
    explicit GlobalHotKeyManager(HotKeySystem& system);
    /// Releases every hot key.
    ~GlobalHotKeyManager() override;

    /// Releases every hot key, then registers those of the workspaces in the order of the list.
    /// A workspace without a shortcut, or whose shortcut is taken, is passed over in silence.
    /// `trigger` gets the id of the workspace whose hot key was pressed, shortly after the press
    /// and from the event loop; it replaces the one before. Answers with the ids of the workspaces
    /// whose hot keys work.
    QFuture<QSet<QUuid>> registerHotKeys(const QList<TrovellWorkspace*>& workspaces,
                                         Trigger trigger);

private:
    void answerPress(const QUuid& workspaceId);

    HotKeySystem& m_system;
    /// The id of the workspace by the number of its hot key: its position in the list, from 1.
    QHash<quint32, QUuid> m_identifiers;
    Trigger m_trigger;
};

} // namespace trovell
