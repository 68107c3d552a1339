// SPDX-License-Identifier: MIT
//
// A real store in a folder of its own, on a disk that can be made to fail. Main thread.
#pragma once

#include "support/StoreContents.h"
#include "support/StoreFaultVfs.h"

#include <QTemporaryDir>

namespace trovell::test {

using namespace Qt::StringLiterals;

class StoreFixture {
public:
    QTemporaryDir folder;
    /// Of the placements that are added.
    DisplayFingerprint fingerprint;

    [[nodiscard]] StoreContext& context() { return m_store->mainContext(); }
    [[nodiscard]] StoreContents contents() { return contentsOf(context()); }

    /// A saved workspace, with the sort order after the others.
    TrovellWorkspace& addWorkspace(const QString& name);
    /// Saved with it; an application's URL names a desktop file in the fixture's folder.
    WorkspaceItem& addItem(TrovellWorkspace& workspace, WorkspaceItemType type,
                           const QString& displayName, const QString& urlString = {});
    /// Saved with it; in the middle of its display.
    WindowPlacement& addPlacement(TrovellWorkspace& workspace, const QString& bundleIdentifier);

    /// Stops the test program when the store does not save.
    void save();
    /// From now on every save fails, until `allowSaving`.
    void refuseSaving() { m_disk.arm(StoreFaultVfs::Fault::diskFull, 1, StoreFaultVfs::forEver); }
    void allowSaving() { m_disk.disarm(); }

private:
    StoreFaultVfs m_disk;
    std::unique_ptr<WorkspaceStore> m_store =
        openStore(folder.filePath(u"store"_s), {.vfsName = m_disk.name()});
};

} // namespace trovell::test
