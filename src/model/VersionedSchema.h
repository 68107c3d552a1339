// SPDX-License-Identifier: MIT
//
// How a form of the store's file is described, and how older forms become the current one. Plain
// values, any thread.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QVersionNumber>

namespace trovell {

struct VersionedSchema {
    QVersionNumber version;
    /// One table per model, of the same name. Each has the columns `position` (order of insertion)
    /// and `checksum` (`row_checksum` of all other columns in their order) beside the attributes.
    QStringList models;
    /// Creates all tables and indexes; one object per statement, exactly as SQLite keeps its text.
    QList<QByteArray> statements;
    /// Fills the tables of a new store.
    QList<QByteArray> initialStatements;
};

/// Turns a store of one schema into the next one, without loss, within one transaction.
struct MigrationStage {
    QVersionNumber from;
    QVersionNumber to;
    /// Must leave exactly the objects of the target schema, with the checksums of changed rows
    /// computed anew.
    QList<QByteArray> statements;
};

struct MigrationPlan {
    /// Oldest first; the last one is the current schema.
    QList<VersionedSchema> schemas;
    QList<MigrationStage> stages;
};

} // namespace trovell
