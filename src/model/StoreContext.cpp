// SPDX-License-Identifier: MIT

#include "model/StoreContext.h"

#include "model/ChangeWriter.h"

#include <algorithm>
#include <utility>

namespace trovell {

using Result = Expected<void, StoreError>;

namespace {

void destroyLater(const QList<TrovellWorkspace*>& workspaces)
{
    for (TrovellWorkspace* workspace : workspaces)
        workspace->deleteLater();
}

} // namespace

StoreContext::StoreContext(SqliteDatabase& database, std::chrono::milliseconds automaticSaveDelay)
    : m_rows(database), m_commits(database)
{
    m_automaticSave.setSingleShot(true);
    m_automaticSave.setInterval(automaticSaveDelay);
    connect(&m_automaticSave, &QTimer::timeout, this, &StoreContext::saveAutomatically);
}

StoreContext::~StoreContext() = default;

Expected<void, StoreError> StoreContext::load()
{
    auto rows = m_rows.workspaces();
    const auto items = m_rows.counts<WorkspaceItem>();
    const auto placements = m_rows.counts<WindowPlacement>();
    if (const Result numbered = m_commits.load(); !numbered)
        return numbered;
    if (!rows)
        return Unexpected<StoreError>(rows.error());
    if (!items)
        return Unexpected<StoreError>(items.error());
    if (!placements)
        return Unexpected<StoreError>(placements.error());
    m_workspaces.reserve(rows->size());
    for (WorkspaceValues& values : *rows) {
        const QUuid id = values.id;
        m_workspaces.push_back(std::make_unique<TrovellWorkspace>(std::move(values)));
        TrovellWorkspace& workspace = *m_workspaces.back();
        workspace.m_isStored = true;
        attach(workspace);
        setReaders(workspace, items->value(id), placements->value(id));
    }
    return {};
}

QList<TrovellWorkspace*> StoreContext::workspaces() const
{
    QList<TrovellWorkspace*> live;
    for (const auto& workspace : m_workspaces) {
        if (!workspace->isRemoved())
            live.append(workspace.get());
    }
    std::ranges::stable_sort(live, {}, &TrovellWorkspace::sortOrder);
    return live;
}

TrovellWorkspace& StoreContext::insert(std::unique_ptr<TrovellWorkspace> workspace)
{
    TrovellWorkspace& inserted = *workspace;
    m_workspaces.push_back(std::move(workspace));
    attach(inserted);
    noteUnsaved(inserted);
    return inserted;
}

void StoreContext::remove(TrovellWorkspace& workspace)
{
    workspace.m_isRemoved = true;
    workspace.noteChange();
}

void StoreContext::remove(WorkspaceItem& item)
{
    Q_ASSERT(item.workspace());
    item.m_isRemoved = true;
    item.workspace()->noteChange();
}

void StoreContext::remove(WindowPlacement& placement)
{
    Q_ASSERT(placement.workspace());
    placement.m_isRemoved = true;
    placement.workspace()->noteChange();
}

Expected<void, StoreError> StoreContext::save()
{
    m_automaticSave.stop();
    if (!hasChanges())
        return {};
    if (m_readError)
        return Unexpected<StoreError>(*m_readError);
    const Result written = m_commits.run([this] { return writeChanges(m_rows, m_touched); });
    if (written)
        acceptChanges();
    return written;
}

void StoreContext::rollback()
{
    m_automaticSave.stop();
    m_readError.reset();
    QList<Record*> reverted;
    const QList<TrovellWorkspace*> touched = std::exchange(m_touched, {});
    for (TrovellWorkspace* workspace : touched) {
        workspace->m_isRemoved = !workspace->m_isStored;
        workspace->revertValues();
        reverted += workspace->m_items.revert();
        reverted += workspace->m_placements.revert();
        reverted.append(workspace);
    }
    const QList<TrovellWorkspace*> dropped = takeUnstored(touched);
    // Only now: observers may write records again.
    for (Record* record : std::as_const(reverted)) {
        if (auto* workspace = qobject_cast<TrovellWorkspace*>(record))
            Q_EMIT workspace->contentChanged();
        Q_EMIT record->changed();
    }
    Q_EMIT changed();
    // Last: what observers posted to themselves comes before the records are destroyed.
    destroyLater(dropped);
}

void StoreContext::attach(TrovellWorkspace& workspace)
{
    workspace.m_noteUnsaved = [this, &workspace] { noteUnsaved(workspace); };
}

void StoreContext::setReaders(TrovellWorkspace& workspace, StoredCounts items,
                              StoredCounts placements)
{
    const QUuid id = workspace.id();
    workspace.m_items.setUnread(
        items, [this, id, items] { return readChildren<WorkspaceItem>(id, items.all); });
    workspace.m_placements.setUnread(placements, [this, id, placements] {
        return readChildren<WindowPlacement>(id, placements.all);
    });
}

template <class Child>
std::optional<std::vector<typename Child::Values>>
StoreContext::readChildren(const QUuid& workspaceId, qint64 expectedCount)
{
    auto rows = m_rows.rowsOf<Child>(workspaceId);
    if (rows && static_cast<qint64>(rows->size()) == expectedCount)
        return std::move(*rows);
    m_readError = rows ? StoreError::damaged : rows.error();
    Q_EMIT readFailed(*m_readError);
    return std::nullopt;
}

void StoreContext::noteUnsaved(TrovellWorkspace& workspace)
{
    if (!m_touched.contains(&workspace))
        m_touched.append(&workspace);
    m_automaticSave.start();
    Q_EMIT changed();
}

void StoreContext::saveAutomatically()
{
    if (const Result saved = save(); !saved)
        Q_EMIT automaticSaveFailed(saved.error());
}

void StoreContext::acceptChanges()
{
    const QList<TrovellWorkspace*> touched = std::exchange(m_touched, {});
    for (TrovellWorkspace* workspace : touched) {
        workspace->acceptValues();
        workspace->m_isStored = !workspace->m_isRemoved;
        workspace->m_items.accept();
        workspace->m_placements.accept();
    }
    destroyLater(takeUnstored(touched));
}

QList<TrovellWorkspace*> StoreContext::takeUnstored(const QList<TrovellWorkspace*>& touched)
{
    QList<TrovellWorkspace*> taken;
    // Most saves drop nothing and must not cost more the more workspaces there are.
    if (std::ranges::all_of(touched, &TrovellWorkspace::isStored))
        return taken;
    std::erase_if(m_workspaces, [&taken](std::unique_ptr<TrovellWorkspace>& workspace) {
        if (workspace->isStored() || !workspace->isRemoved())
            return false;
        workspace->m_noteUnsaved = nullptr;
        workspace->m_items.setUnread({}, nullptr);
        workspace->m_placements.setUnread({}, nullptr);
        taken.append(workspace.release());
        return true;
    });
    return taken;
}

} // namespace trovell
