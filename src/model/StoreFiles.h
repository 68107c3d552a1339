// SPDX-License-Identifier: MIT
//
// The store's place in the file system: private to the user, and never replaced. Any thread.
#pragma once

#include "model/StoreError.h"
#include "support/Expected.h"

#include <QString>

namespace trovell {

class StoreFiles {
public:
    /// `folder` belongs to the store.
    explicit StoreFiles(const QString& folder);

    [[nodiscard]] QString storePath() const;

    /// Creates what is missing: the folder and those above it with mode 0700, and an empty file
    /// with mode 0600, whatever the process's umask. SQLite gives its journal the mode of the
    /// file. An existing file is left as it is.
    ///
    /// An empty file that once held a store is refused as damaged. SQLite would take it for a new
    /// one, so a marker beside it tells the two apart.
    [[nodiscard]] Expected<void, StoreError> prepare() const;

    /// To be called once the file holds a store. Without the marker, which a full disk may
    /// prevent, only the check of an emptied file is lost, until the next call.
    void markAsCreated() const;

    // The copy that is kept of a store before its first migration.

    /// Where it is.
    [[nodiscard]] QString copyPath() const;
    /// An empty file for it, private like the store.
    [[nodiscard]] Expected<void, StoreError> prepareCopy() const;
    /// Returns once the copy is on the disk.
    [[nodiscard]] Expected<void, StoreError> synchronizeCopy() const;
    /// Nothing if there is none.
    void removeCopy() const;

private:
    [[nodiscard]] QString markerPath() const;
    [[nodiscard]] Expected<void, StoreError> createStoreFile() const;

    QString m_folder;
};

} // namespace trovell
