// SPDX-License-Identifier: MIT
//
// A launch item while it is being edited: a plain value that becomes a record on save.
#pragma once

#include "model/WorkspaceItemType.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <memory>
#include <optional>

namespace trovell {

class ResourceSystem;
class WorkspaceItem;

struct EditableWorkspaceItem {
    /// Kept by the saved record, so that an item stays the same across edits.
    QUuid id;
    WorkspaceItemType type = WorkspaceItemType::file;
    QString displayName;
    /// Absolute.
    QString urlString;
    std::optional<QByteArray> bookmarkData = {};
    // Applications only.
    std::optional<QString> bundleIdentifier = {};
    std::optional<QString> applicationPath = {};
    std::optional<QString> arguments = {};
    std::optional<QString> workingFolder = {};
    /// All others: the application to open it with, if it is not the default one.
    std::optional<QString> openWith = {};
    bool isEnabled = true;

    bool operator==(const EditableWorkspaceItem&) const = default;
};

/// As it is stored. Main thread.
[[nodiscard]] EditableWorkspaceItem editableItem(const WorkspaceItem& item);

/// A new item for an absolute address. What cannot be found out of a file is left out. Reads the
/// file system for everything but web links: any thread, meant for workers.
[[nodiscard]] EditableWorkspaceItem editableItem(const QUrl& url, WorkspaceItemType type,
                                                 const ResourceSystem& resources);

/// The above for several, in their order.
[[nodiscard]] QList<EditableWorkspaceItem>
editableItems(const QList<QUrl>& urls, WorkspaceItemType type, const ResourceSystem& resources);

/// A new record of the same id, created now, that belongs to no workspace yet. Main thread.
[[nodiscard]] std::unique_ptr<WorkspaceItem> makeWorkspaceItem(const EditableWorkspaceItem& item,
                                                               qint64 sortOrder);

} // namespace trovell
