// SPDX-License-Identifier: MIT

#include "editing/EditableWorkspaceItem.h"

#include "launch/ResourceSystem.h"
#include "model/WorkspaceItem.h"

#include <QDir>

namespace trovell {

namespace {

/// The last part of the path; the whole of it for "/".
QString fileDisplayName(const QUrl& url)
{
    const QString path = QDir::cleanPath(url.path(QUrl::FullyDecoded));
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? path : name;
}

QString webDisplayName(const QUrl& url)
{
    return url.host().isEmpty() ? url.toString(QUrl::FullyEncoded) : url.host();
}

void describeApplication(EditableWorkspaceItem& item, const QUrl& url,
                         const ResourceSystem& resources)
{
    item.applicationPath = url.path(QUrl::FullyDecoded);
    const auto application = resources.describeApplication(url);
    if (!application)
        return;
    item.bundleIdentifier = application->bundleIdentifier;
    item.displayName = application->name;
}

} // namespace

EditableWorkspaceItem editableItem(const WorkspaceItem& item)
{
    return {.id = item.id(),
            .type = item.type(),
            .displayName = item.displayName(),
            .urlString = item.urlString(),
            .bookmarkData = item.bookmarkData(),
            .bundleIdentifier = item.bundleIdentifier(),
            .applicationPath = item.applicationPath(),
            .arguments = item.values().arguments,
            .workingFolder = item.values().workingFolder,
            .openWith = item.values().openWith,
            .isEnabled = item.isEnabled()};
}

EditableWorkspaceItem editableItem(const QUrl& url, WorkspaceItemType type,
                                   const ResourceSystem& resources)
{
    EditableWorkspaceItem item{.id = makeRecordId(),
                               .type = type,
                               .displayName = webDisplayName(url),
                               .urlString = url.toString(QUrl::FullyEncoded)};
    if (type == WorkspaceItemType::webLink)
        return item;
    item.displayName = fileDisplayName(url);
    item.bookmarkData = resources.createBookmark(url);
    if (type == WorkspaceItemType::application)
        describeApplication(item, url, resources);
    return item;
}

QList<EditableWorkspaceItem> editableItems(const QList<QUrl>& urls, WorkspaceItemType type,
                                           const ResourceSystem& resources)
{
    QList<EditableWorkspaceItem> items;
    items.reserve(urls.size());
    for (const QUrl& url : urls)
        items.append(editableItem(url, type, resources));
    return items;
}

std::unique_ptr<WorkspaceItem> makeWorkspaceItem(const EditableWorkspaceItem& item,
                                                 qint64 sortOrder)
{
    return std::make_unique<WorkspaceItem>(
        WorkspaceItemValues{.id = item.id,
                            .typeRawValue = rawValue(item.type),
                            .displayName = item.displayName,
                            .sortOrder = sortOrder,
                            .urlString = item.urlString,
                            .bookmarkData = item.bookmarkData,
                            .bundleIdentifier = item.bundleIdentifier,
                            .applicationPath = item.applicationPath,
                            .isEnabled = item.isEnabled,
                            .arguments = item.arguments,
                            .workingFolder = item.workingFolder,
                            .openWith = item.openWith});
}

} // namespace trovell
