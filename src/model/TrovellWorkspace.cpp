// SPDX-License-Identifier: MIT

#include "model/TrovellWorkspace.h"

#include <algorithm>

namespace trovell {

namespace {

std::optional<QDateTime> utc(const std::optional<QDateTime>& instant)
{
    return instant ? std::optional(instant->toUTC()) : std::nullopt;
}

WorkspaceValues normalized(WorkspaceValues values)
{
    values.createdAt = values.createdAt.toUTC();
    values.updatedAt = values.updatedAt.toUTC();
    values.lastLaunchedAt = utc(values.lastLaunchedAt);
    return values;
}

} // namespace

TrovellWorkspace::TrovellWorkspace(WorkspaceValues values)
    : RecordOf(normalized(std::move(values)), this), m_items(*this), m_placements(*this)
{
}

const std::optional<QDateTime>& TrovellWorkspace::lastLaunchedAt() const
{
    return values().lastLaunchedAt;
}

const std::optional<QByteArray>& TrovellWorkspace::shortcutData() const
{
    return values().shortcutData;
}

void TrovellWorkspace::setLastLaunchedAt(const std::optional<QDateTime>& instant)
{
    write(&Values::lastLaunchedAt, utc(instant));
}

void TrovellWorkspace::setShortcutData(const std::optional<QByteArray>& data)
{
    write(&Values::shortcutData, data);
}

std::optional<ShortcutDefinition> TrovellWorkspace::shortcut() const
{
    return shortcutData() ? decodeShortcut(*shortcutData()) : std::nullopt;
}

void TrovellWorkspace::setShortcut(const std::optional<ShortcutDefinition>& shortcut)
{
    setShortcutData(shortcut ? std::optional(encodeShortcut(*shortcut)) : std::nullopt);
}

QList<WorkspaceItem*> TrovellWorkspace::sortedItems() const
{
    QList<WorkspaceItem*> items = m_items.live();
    std::ranges::stable_sort(items, {}, &WorkspaceItem::sortOrder);
    return items;
}

QList<WindowPlacement*> TrovellWorkspace::sortedPlacements() const
{
    QList<WindowPlacement*> placements = m_placements.live();
    std::ranges::stable_sort(placements, {}, &WindowPlacement::windowIndexHint);
    return placements;
}

WorkspaceItem& TrovellWorkspace::appendItem(std::unique_ptr<WorkspaceItem> item)
{
    WorkspaceItem& appended = *item;
    m_items.append(std::move(item));
    noteChange();
    return appended;
}

WindowPlacement& TrovellWorkspace::appendPlacement(std::unique_ptr<WindowPlacement> placement)
{
    WindowPlacement& appended = *placement;
    m_placements.append(std::move(placement));
    noteChange();
    return appended;
}

void TrovellWorkspace::noteContentChange()
{
    // The store must know of the change before any observer acts on it.
    if (m_noteUnsaved)
        m_noteUnsaved();
    Q_EMIT contentChanged();
}

} // namespace trovell
