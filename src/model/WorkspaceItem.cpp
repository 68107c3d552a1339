// SPDX-License-Identifier: MIT

#include "model/WorkspaceItem.h"

namespace trovell {

namespace {

WorkspaceItemValues normalized(WorkspaceItemValues values)
{
    values.createdAt = values.createdAt.toUTC();
    return values;
}

} // namespace

WorkspaceItem::WorkspaceItem(WorkspaceItemValues values)
    : RecordOf(normalized(std::move(values)), nullptr)
{
}

const std::optional<QByteArray>& WorkspaceItem::bookmarkData() const
{
    return values().bookmarkData;
}

const std::optional<QString>& WorkspaceItem::bundleIdentifier() const
{
    return values().bundleIdentifier;
}

const std::optional<QString>& WorkspaceItem::applicationPath() const
{
    return values().applicationPath;
}

void WorkspaceItem::setBookmarkData(const std::optional<QByteArray>& data)
{
    write(&Values::bookmarkData, data);
}

void WorkspaceItem::setBundleIdentifier(const std::optional<QString>& identifier)
{
    write(&Values::bundleIdentifier, identifier);
}

void WorkspaceItem::setApplicationPath(const std::optional<QString>& path)
{
    write(&Values::applicationPath, path);
}

std::unique_ptr<WorkspaceItem> WorkspaceItem::duplicate(std::optional<qint64> sortOrder) const
{
    WorkspaceItemValues copy = values();
    copy.id = makeRecordId();
    copy.createdAt = QDateTime::currentDateTimeUtc();
    copy.typeRawValue = rawValue(type());
    copy.sortOrder = sortOrder.value_or(copy.sortOrder);
    return std::make_unique<WorkspaceItem>(std::move(copy));
}

} // namespace trovell
