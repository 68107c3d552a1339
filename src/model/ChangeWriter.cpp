// SPDX-License-Identifier: MIT

#include "model/ChangeWriter.h"

namespace trovell {

namespace {

using Result = Expected<void, StoreError>;

template <class Child> Result writeRemovalsOf(RecordRows& rows, const ToMany<Child>& children)
{
    for (const auto& child : children.loaded()) {
        if (!child->isRemoved() || !child->isStored())
            continue;
        if (const Result removed = rows.remove(child->values()); !removed)
            return removed;
    }
    return {};
}

template <class Child> Result writeUpdatesOf(RecordRows& rows, const ToMany<Child>& children)
{
    for (const auto& child : children.loaded()) {
        if (child->isRemoved() || !child->isModified())
            continue;
        if (const Result updated = rows.update(child->values()); !updated)
            return updated;
    }
    return {};
}

template <class Child>
Result writeInsertionsOf(RecordRows& rows, const ToMany<Child>& children, const QUuid& owner)
{
    for (const auto& child : children.loaded()) {
        if (child->isRemoved() || child->isStored())
            continue;
        if (const Result inserted = rows.insert(child->values(), owner); !inserted)
            return inserted;
    }
    return {};
}

Result writeRemovals(RecordRows& rows, const TrovellWorkspace& workspace)
{
    if (workspace.isRemoved())
        return workspace.isStored() ? rows.remove(workspace.values()) : Result();
    return writeRemovalsOf(rows, workspace.items()).and_then([&] {
        return writeRemovalsOf(rows, workspace.placements());
    });
}

Result writeUpdates(RecordRows& rows, const TrovellWorkspace& workspace)
{
    if (workspace.isRemoved())
        return {};
    const Result updated = workspace.isModified() ? rows.update(workspace.values()) : Result();
    return updated.and_then([&] { return writeUpdatesOf(rows, workspace.items()); }).and_then([&] {
        return writeUpdatesOf(rows, workspace.placements());
    });
}

Result writeInsertions(RecordRows& rows, const TrovellWorkspace& workspace)
{
    if (workspace.isRemoved())
        return {};
    const Result inserted = workspace.isStored() ? Result() : rows.insert(workspace.values(), {});
    return inserted
        .and_then([&] { return writeInsertionsOf(rows, workspace.items(), workspace.id()); })
        .and_then([&] { return writeInsertionsOf(rows, workspace.placements(), workspace.id()); });
}

} // namespace

Expected<void, StoreError> writeChanges(RecordRows& rows, const QList<TrovellWorkspace*>& touched)
{
    // An id may pass from a removed record to a new one within one save, so removals come first.
    for (auto* const writePart : {&writeRemovals, &writeUpdates, &writeInsertions}) {
        for (const TrovellWorkspace* workspace : touched) {
            if (const Result written = writePart(rows, *workspace); !written)
                return written;
        }
    }
    return {};
}

} // namespace trovell
