// SPDX-License-Identifier: MIT

#include "services/GlobalHotKeyManager.h"

#include "model/TrovellWorkspace.h"

#include <QPointer>

namespace trovell {

GlobalHotKeyManager::GlobalHotKeyManager(HotKeySystem& system) : m_system(system) {}

GlobalHotKeyManager::~GlobalHotKeyManager()
{
    m_system.setHotKeys({}, {});
}

QFuture<QSet<QUuid>>
GlobalHotKeyManager::registerHotKeys(const QList<TrovellWorkspace*>& workspaces, Trigger trigger)
{
    m_trigger = std::move(trigger);
    m_identifiers.clear();
    QList<HotKey> hotKeys;
    quint32 number = 0;
    for (const TrovellWorkspace* workspace : workspaces) {
        ++number;
        const auto shortcut = workspace->shortcut();
        const auto keys = shortcut ? keyCombination(*shortcut) : std::nullopt;
        if (!keys)
            continue;
        hotKeys.append({number, *keys});
        m_identifiers.insert(number, workspace->id());
    }
    // A press that is still on its way when the hot keys change means the workspace of its time.
    const auto answer = [guard = QPointer(this), ids = m_identifiers](quint32 pressed) {
        if (guard)
            guard->answerPress(ids.value(pressed));
    };
    return m_system.setHotKeys(hotKeys, answer)
        .then([ids = m_identifiers](const QList<quint32>& granted) {
            QSet<QUuid> working;
            for (const quint32 hotKey : granted)
                working.insert(ids.value(hotKey));
            return working;
        });
}

void GlobalHotKeyManager::answerPress(const QUuid& workspaceId)
{
    if (!m_identifiers.values().contains(workspaceId))
        return;
    // A copy: the trigger may register anew.
    const Trigger trigger = m_trigger;
    trigger(workspaceId);
}

} // namespace trovell
