// SPDX-License-Identifier: MIT

#include "platform/freedesktop/DesktopFileTable.h"

#include "platform/freedesktop/FilePath.h"

#include <utility>

namespace trovell {

namespace {

template <class Key>
void addFirst(QHash<Key, qsizetype>& positions, const Key& key, qsizetype position)
{
    if (!key.isEmpty() && !positions.contains(key))
        positions.insert(key, position);
}

} // namespace

DesktopFileTable::DesktopFileTable(QList<DesktopEntry> entries) : m_entries(std::move(entries))
{
    for (qsizetype position = 0; position < m_entries.size(); ++position) {
        const DesktopEntry& entry = m_entries.at(position);
        const QString foldedId = entry.id.toCaseFolded();
        addFirst(m_byId, entry.id, position);
        addFirst(m_byPath, entry.path, position);
        addFirst(m_byWMClass, entry.startupWMClass, position);
        addFirst(m_byFoldedId, foldedId, position);
        addFirst(m_byFoldedWMClass, entry.startupWMClass.toCaseFolded(), position);
        if (foldedId.contains(u'.'))
            addFirst(m_byFoldedLastPart, foldedId.section(u'.', -1), position);
        addProgram(position);
    }
}

void DesktopFileTable::addProgram(qsizetype position)
{
    const DesktopEntry& entry = m_entries.at(position);
    if (entry.program.isEmpty() || entry.isConcealed)
        return;
    const auto known = m_byProgram.constFind(entry.program);
    if (known == m_byProgram.cend() || entry.programRank < m_entries.at(*known).programRank)
        m_byProgram.insert(entry.program, position);
}

template <class Key>
const DesktopEntry* DesktopFileTable::find(const Positions<Key>& positions, const Key& key) const
{
    const auto position = positions.constFind(key);
    return position == positions.cend() ? nullptr : &m_entries.at(*position);
}

const DesktopEntry* DesktopFileTable::entry(const QString& id) const
{
    return find(m_byId, id);
}

const DesktopEntry* DesktopFileTable::identify(const WindowIdentity& window,
                                               const ProcessFacts& process) const
{
    for (const QString& id : {window.gtkApplicationId, window.sandboxId}) {
        if (const DesktopEntry* found = entry(id))
            return found;
    }
    // A web application in a browser's process: only its instance tells it from the browser.
    if (const DesktopEntry* found = find(m_byWMClass, window.wmInstance))
        return found;
    if (const DesktopEntry* found = findLaunched(process.launchedDesktopFile))
        return found;
    if (const DesktopEntry* found = findByClass(window))
        return found;
    return find(m_byProgram, process.executable);
}

const DesktopEntry* DesktopFileTable::findLaunched(const QByteArray& desktopFile) const
{
    if (const DesktopEntry* found = find(m_byPath, desktopFile))
        return found;
    // The file may have been replaced since, by one of the same id in another folder.
    return entry(desktopEntryId(QString::fromUtf8(fileName(desktopFile))));
}

const DesktopEntry* DesktopFileTable::findByClass(const WindowIdentity& window) const
{
    const QString foldedClass = window.wmClass.toCaseFolded();
    const QString foldedInstance = window.wmInstance.toCaseFolded();
    const DesktopEntry* const candidates[] = {
        find(m_byWMClass, window.wmClass),     find(m_byWMClass, window.wmInstance),
        find(m_byFoldedWMClass, foldedClass),  find(m_byFoldedWMClass, foldedInstance),
        find(m_byId, window.wmClass),          find(m_byId, window.wmInstance),
        find(m_byFoldedId, foldedClass),       find(m_byFoldedId, foldedInstance),
        find(m_byFoldedLastPart, foldedClass),
    };
    for (const DesktopEntry* candidate : candidates) {
        if (candidate)
            return candidate;
    }
    return nullptr;
}

std::optional<ApplicationIdentity> applicationIdentity(const DesktopEntry* entry)
{
    if (!entry)
        return {};
    return ApplicationIdentity{entry->id, entry->name, fileURL(entry->path)};
}

} // namespace trovell
