// SPDX-License-Identifier: MIT

#include "services/GlobalHotKeyManager.h"

#include "model/TrovellWorkspace.h"

namespace trovell {

GlobalHotKeyManager::GlobalHotKeyManager(HotKeySystem& system) : m_system(system)
{
    // The press is answered from the event loop, so that whatever the trigger does, it does not
    // happen inside the desktop's event handling.
    m_system.installPressHandler([this](quint32 number) {
        QMetaObject::invokeMethod(
            this, [this, number] { answerPress(number); }, Qt::QueuedConnection);
    });
}

GlobalHotKeyManager::~GlobalHotKeyManager()
{
    releaseHotKeys();
    m_system.installPressHandler({});
}

void GlobalHotKeyManager::registerHotKeys(const QList<TrovellWorkspace*>& workspaces,
                                          Trigger trigger)
{
    // All are released first: shortcuts may have changed places.
    releaseHotKeys();
    m_trigger = std::move(trigger);
    quint32 number = 0;
    for (const TrovellWorkspace* workspace : workspaces)
        registerHotKey(++number, *workspace);
}

void GlobalHotKeyManager::registerHotKey(quint32 number, const TrovellWorkspace& workspace)
{
    const auto shortcut = workspace.shortcut();
    const auto keys = shortcut ? keyCombination(*shortcut) : std::nullopt;
    if (!keys)
        return;
    const auto reference = m_system.registerHotKey(number, *keys);
    if (!reference)
        return;
    m_references.insert(workspace.id(), *reference);
    m_identifiers.insert(number, workspace.id());
}

void GlobalHotKeyManager::releaseHotKeys()
{
    for (const HotKeyReference reference : std::as_const(m_references))
        m_system.unregisterHotKey(reference);
    m_references.clear();
    m_identifiers.clear();
}

void GlobalHotKeyManager::answerPress(quint32 number)
{
    const auto workspaceId = m_identifiers.constFind(number);
    if (workspaceId == m_identifiers.constEnd() || !m_trigger)
        return;
    // Copies: the trigger may register anew.
    const Trigger trigger = m_trigger;
    const QUuid id = *workspaceId;
    trigger(id);
}

} // namespace trovell
