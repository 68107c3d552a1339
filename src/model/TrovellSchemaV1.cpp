// SPDX-License-Identifier: MIT

#include "model/TrovellSchemaV1.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

// Ids are the 16 bytes of RFC 4122, dates are milliseconds since 1970 in UTC. Dates and lengths
// may be NULL, which stands for an invalid date and NaN.
constexpr const char* workspaceTable = R"(CREATE TABLE TrovellWorkspace(
    position INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE,
    name TEXT NOT NULL,
    symbolName TEXT NOT NULL,
    accentIdentifier TEXT NOT NULL,
    sortOrder INTEGER NOT NULL,
    createdAt INTEGER,
    updatedAt INTEGER,
    lastLaunchedAt INTEGER,
    shortcutData BLOB,
    checksum INTEGER NOT NULL
) STRICT)";

constexpr const char* itemTable = R"(CREATE TABLE WorkspaceItem(
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
    workspace BLOB NOT NULL REFERENCES TrovellWorkspace(id) ON DELETE CASCADE,
    checksum INTEGER NOT NULL
) STRICT)";

constexpr const char* placementTable = R"(CREATE TABLE WindowPlacement(
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
    workspace BLOB NOT NULL REFERENCES TrovellWorkspace(id) ON DELETE CASCADE,
    checksum INTEGER NOT NULL
) STRICT)";

// One row: the number of the last save.
constexpr const char* commitTable = "CREATE TABLE StoreCommit(number INTEGER NOT NULL) STRICT";

// These answer the counts of the list by themselves.
constexpr const char* itemIndex =
    "CREATE INDEX WorkspaceItemByWorkspace ON WorkspaceItem(workspace, isEnabled)";
constexpr const char* placementIndex =
    "CREATE INDEX WindowPlacementByWorkspace ON WindowPlacement(workspace, isEnabled)";

} // namespace

VersionedSchema TrovellSchemaV1::schema()
{
    return {
        .version = QVersionNumber(1, 0, 0),
        .models = {u"TrovellWorkspace"_s, u"WorkspaceItem"_s, u"WindowPlacement"_s},
        .statements = {workspaceTable, itemTable, placementTable, commitTable, itemIndex,
                       placementIndex},
        .initialStatements = {"INSERT INTO StoreCommit(number) VALUES(0)"},
    };
}

} // namespace trovell
