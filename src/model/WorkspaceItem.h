// SPDX-License-Identifier: MIT
//
// One thing a workspace opens: an application, a folder, a file or a web link. Main thread only.
#pragma once

#include "model/Record.h"
#include "model/RecordId.h"
#include "model/WorkspaceItemType.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace trovell {

struct WorkspaceItemValues {
    QUuid id = makeRecordId();
    /// Raw value of a `WorkspaceItemType`.
    QString typeRawValue = {};
    /// Shown in lists and launch reports.
    QString displayName = {};
    /// Opening order within the workspace, ascending; gaps are allowed.
    qint64 sortOrder = 0;
    /// Absolute: the validated address of a web link, else the file URL of the resource.
    QString urlString = {};
    /// Finds the resource again after a move; none for web links.
    std::optional<QByteArray> bookmarkData = {};
    /// Applications only.
    std::optional<QString> bundleIdentifier = {};
    /// Applications only: path in the file system.
    std::optional<QString> applicationPath = {};
    /// A disabled item is skipped when the workspace starts.
    bool isEnabled = true;
    /// UTC.
    QDateTime createdAt = QDateTime::currentDateTimeUtc();
    /// Applications only: what they are started with, as in a shell, and the folder they work in.
    std::optional<QString> arguments = {};
    std::optional<QString> workingFolder = {};
    /// Files, folders and links: the identifier of the application that opens them, if it is not
    /// the default one.
    std::optional<QString> openWith = {};

    bool operator==(const WorkspaceItemValues&) const = default;
};

class WorkspaceItem final : public RecordOf<WorkspaceItemValues> {
    Q_OBJECT

public:
    /// A record of its own, in no workspace yet.
    explicit WorkspaceItem(WorkspaceItemValues values);

    [[nodiscard]] const QString& typeRawValue() const { return values().typeRawValue; }
    [[nodiscard]] const QString& displayName() const { return values().displayName; }
    [[nodiscard]] qint64 sortOrder() const { return values().sortOrder; }
    [[nodiscard]] const QString& urlString() const { return values().urlString; }
    [[nodiscard]] const std::optional<QByteArray>& bookmarkData() const;
    [[nodiscard]] const std::optional<QString>& bundleIdentifier() const;
    [[nodiscard]] const std::optional<QString>& applicationPath() const;
    [[nodiscard]] bool isEnabled() const { return values().isEnabled; }
    [[nodiscard]] const QDateTime& createdAt() const { return values().createdAt; }

    void setTypeRawValue(const QString& text) { write(&Values::typeRawValue, text); }
    void setDisplayName(const QString& name) { write(&Values::displayName, name); }
    void setSortOrder(qint64 order) { write(&Values::sortOrder, order); }
    void setUrlString(const QString& url) { write(&Values::urlString, url); }
    void setBookmarkData(const std::optional<QByteArray>& data);
    void setBundleIdentifier(const std::optional<QString>& identifier);
    void setApplicationPath(const std::optional<QString>& path);
    void setIsEnabled(bool isEnabled) { write(&Values::isEnabled, isEnabled); }
    void setCreatedAt(const QDateTime& instant) { write(&Values::createdAt, instant.toUTC()); }

    /// The workspace it was appended to; null before.
    [[nodiscard]] TrovellWorkspace* workspace() const { return owner(); }

    [[nodiscard]] WorkspaceItemType type() const { return workspaceItemType(typeRawValue()); }

    /// A new record with an id of its own, created now, in no workspace.
    [[nodiscard]] std::unique_ptr<WorkspaceItem>
    duplicate(std::optional<qint64> sortOrder = {}) const;
};

} // namespace trovell
