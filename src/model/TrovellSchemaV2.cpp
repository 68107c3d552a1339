// SPDX-License-Identifier: MIT

#include "model/TrovellSchemaV2.h"

#include "model/TrovellSchemaV1.h"

namespace trovell {

namespace {

// The attributes of version 1, then the new ones; forms as there.
constexpr const char* itemTable2 = R"(CREATE TABLE WorkspaceItem(
    position INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    typeRawValue TEXT NOT NULL,
    displayName TEXT NOT NULL,
    sortOrder INTEGER NOT NULL,
    urlString TEXT NOT NULL,
    bookmarkData BLOB,
    bundleIdentifier TEXT,
    applicationPath TEXT,
    isEnabled INTEGER NOT NULL,
    createdAt INTEGER,
    arguments TEXT,
    workingFolder TEXT,
    openWith TEXT,
    workspace BLOB NOT NULL REFERENCES TrovellWorkspace(id) ON DELETE CASCADE,
    checksum INTEGER NOT NULL
) STRICT)";

constexpr const char* placementTable2 = R"(CREATE TABLE WindowPlacement(
    position INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    bundleIdentifier TEXT NOT NULL,
    applicationName TEXT NOT NULL,
    windowTitleHint TEXT,
    windowRole TEXT,
    windowSubrole TEXT,
    windowIndexHint INTEGER NOT NULL,
    normalizedX REAL,
    normalizedY REAL,
    normalizedWidth REAL,
    normalizedHeight REAL,
    absoluteX REAL,
    absoluteY REAL,
    absoluteWidth REAL,
    absoluteHeight REAL,
    displayFingerprintData BLOB NOT NULL,
    isEnabled INTEGER NOT NULL,
    virtualDesktopIndex INTEGER,
    virtualDesktopName TEXT,
    isOnAllDesktops INTEGER NOT NULL,
    windowStates TEXT,
    stackingIndex INTEGER,
    restoresDesktop INTEGER NOT NULL,
    restoresState INTEGER NOT NULL,
    opensMissingWindow INTEGER NOT NULL,
    workspace BLOB NOT NULL REFERENCES TrovellWorkspace(id) ON DELETE CASCADE,
    checksum INTEGER NOT NULL
) STRICT)";

constexpr QByteArrayView itemColumns =
    "id, typeRawValue, displayName, sortOrder, urlString, bookmarkData, bundleIdentifier, "
    "applicationPath, isEnabled, createdAt";
constexpr QByteArrayView placementColumns =
    "id, bundleIdentifier, applicationName, windowTitleHint, windowRole, windowSubrole, "
    "windowIndexHint, normalizedX, normalizedY, normalizedWidth, normalizedHeight, absoluteX, "
    "absoluteY, absoluteWidth, absoluteHeight, displayFingerprintData, isEnabled";

/// Copies all rows of a table that was renamed, with the values of new columns.
QByteArray copyRows(QByteArrayView table, QByteArrayView columns, QByteArrayView newValues)
{
    const QByteArray row = columns.toByteArray() + ", " + newValues.toByteArray() + ", workspace";
    return "INSERT INTO " + table.toByteArray() + " SELECT position, " + row + ", row_checksum(" +
           row + ") FROM Old" + table.toByteArray();
}

} // namespace

VersionedSchema TrovellSchemaV2::schema()
{
    VersionedSchema schema = TrovellSchemaV1::schema();
    // The order in which a migrated file has them, too.
    const QList<QByteArray> first = schema.statements;
    schema.version = QVersionNumber(2, 0, 0);
    schema.statements = {first[0], first[3], itemTable2, placementTable2, first[4], first[5]};
    return schema;
}

MigrationStage TrovellSchemaV2::fromVersion1()
{
    const QList<QByteArray> indexes = schema().statements.mid(4);
    return {QVersionNumber(1, 0, 0),
            QVersionNumber(2, 0, 0),
            {"ALTER TABLE WorkspaceItem RENAME TO OldWorkspaceItem",
             "ALTER TABLE WindowPlacement RENAME TO OldWindowPlacement", itemTable2,
             placementTable2, copyRows("WorkspaceItem", itemColumns, "NULL, NULL, NULL"),
             copyRows("WindowPlacement", placementColumns, "NULL, NULL, 0, NULL, NULL, 1, 1, 0"),
             "DROP TABLE OldWorkspaceItem", "DROP TABLE OldWindowPlacement", indexes[0],
             indexes[1]}};
}

} // namespace trovell
