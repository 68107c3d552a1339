// SPDX-License-Identifier: MIT

#include "model/StoreSchema.h"

#include <algorithm>

namespace trovell {

namespace {

using Result = Expected<void, StoreError>;

/// "Trov", in the file's header: tells our files from those of other programs.
constexpr qint64 applicationId = 0x54726f76;

Result failure(StoreError error)
{
    return Unexpected<StoreError>(error);
}

/// The version as the file's header holds it: 1.2.3 is 1002003.
qint64 versionNumber(const QVersionNumber& version)
{
    return version.majorVersion() * 1'000'000LL + version.minorVersion() * 1'000LL +
           version.microVersion();
}

Result executeAll(SqliteDatabase& database, const QList<QByteArray>& statements)
{
    for (const QByteArray& statement : statements) {
        if (const Result result = database.execute(statement); !result)
            return result;
    }
    return {};
}

Result writeVersion(SqliteDatabase& database, const QVersionNumber& version)
{
    return database.execute("PRAGMA user_version=" + QByteArray::number(versionNumber(version)));
}

Result createSchema(SqliteDatabase& database, const VersionedSchema& schema)
{
    return database.transaction([&]() -> Result {
        const auto marked =
            database.execute("PRAGMA application_id=" + QByteArray::number(applicationId));
        if (!marked)
            return marked;
        if (const Result created =
                executeAll(database, schema.statements + schema.initialStatements);
            !created)
            return created;
        return writeVersion(database, schema.version);
    });
}

/// Fails as damaged when the query answers anything but `expected`.
Result expectNumber(SqliteDatabase& database, const QByteArray& sql, qint64 expected)
{
    const Expected<qint64, StoreError> number = database.number(sql);
    if (!number)
        return failure(number.error());
    return *number == expected ? Result() : failure(StoreError::damaged);
}

/// SQLite runs the definitions it finds in the file: a changed letter in them could change types
/// or constraints.
Result checkDefinitions(SqliteDatabase& database, const VersionedSchema& schema)
{
    QList<QByteArray> definitions;
    SqliteStatement query = database.statement(
        "SELECT CAST(sql AS BLOB) FROM sqlite_schema WHERE sql IS NOT NULL ORDER BY rowid");
    for (;;) {
        const Expected<bool, StoreError> hasRow = query.step();
        if (!hasRow)
            return failure(hasRow.error());
        if (!*hasRow)
            break;
        query.read(definitions.emplaceBack());
    }
    return definitions == schema.statements ? Result() : failure(StoreError::damaged);
}

Result checkRows(SqliteDatabase& database, const QString& model)
{
    const QByteArray table = model.toUtf8();
    QByteArray columns;
    {
        SqliteStatement query =
            database.statement("SELECT group_concat(name) FROM pragma_table_info('" + table +
                               "') WHERE name NOT IN ('position', 'checksum')");
        const Expected<bool, StoreError> hasRow = query.step();
        if (!hasRow)
            return failure(hasRow.error());
        query.read(columns);
    }
    return expectNumber(database,
                        "SELECT count(*) FROM " + table + " WHERE checksum IS NOT row_checksum(" +
                            columns + ')',
                        0);
}

Result checkContent(SqliteDatabase& database, const VersionedSchema& schema)
{
    if (const Result definitions = checkDefinitions(database, schema); !definitions)
        return definitions;
    const Result orphans =
        expectNumber(database, "SELECT count(*) FROM pragma_foreign_key_check", 0);
    if (!orphans)
        return orphans;
    for (const QString& model : schema.models) {
        if (const Result rows = checkRows(database, model); !rows)
            return rows;
    }
    return {};
}

Result checkStructure(SqliteDatabase& database)
{
    return expectNumber(
        database, "SELECT count(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'", 0);
}

Expected<VersionedSchema, StoreError> storedSchema(SqliteDatabase& database,
                                                   const MigrationPlan& plan)
{
    const Expected<qint64, StoreError> application = database.number("PRAGMA application_id");
    if (!application)
        return Unexpected<StoreError>(application.error());
    if (*application != applicationId)
        return Unexpected<StoreError>(StoreError::notAStore);
    const Expected<qint64, StoreError> version = database.number("PRAGMA user_version");
    if (!version)
        return Unexpected<StoreError>(version.error());
    const auto found = std::ranges::find_if(plan.schemas, [&](const VersionedSchema& schema) {
        return versionNumber(schema.version) == *version;
    });
    if (found == plan.schemas.end())
        return Unexpected<StoreError>(StoreError::unknownSchema);
    return *found;
}

/// The stages from `version` to the current schema, in order.
Expected<QList<MigrationStage>, StoreError> stagesFrom(QVersionNumber version,
                                                       const MigrationPlan& plan)
{
    QList<MigrationStage> stages;
    while (version != plan.schemas.last().version) {
        const auto next = std::ranges::find(plan.stages, version, &MigrationStage::from);
        if (next == plan.stages.end() || next->to <= version)
            return Unexpected<StoreError>(StoreError::unknownSchema);
        stages.append(*next);
        version = next->to;
    }
    return stages;
}

Result migrate(SqliteDatabase& database, const QVersionNumber& from, const MigrationPlan& plan)
{
    const Expected<QList<MigrationStage>, StoreError> stages = stagesFrom(from, plan);
    if (!stages)
        return failure(stages.error());
    return database.transaction([&]() -> Result {
        for (const MigrationStage& stage : *stages) {
            if (const Result result = executeAll(database, stage.statements); !result)
                return result;
        }
        const VersionedSchema& current = plan.schemas.last();
        if (const Result written = writeVersion(database, current.version); !written)
            return written;
        return checkContent(database, current);
    });
}

} // namespace

Expected<void, StoreError>
prepareSchema(SqliteDatabase& database, const MigrationPlan& plan,
              const std::function<Expected<void, StoreError>()>& beforeMigration)
{
    const Expected<qint64, StoreError> pages = database.number("PRAGMA page_count");
    if (!pages)
        return failure(pages.error());
    if (*pages == 0)
        return createSchema(database, plan.schemas.last());
    const Expected<VersionedSchema, StoreError> stored = storedSchema(database, plan);
    if (!stored)
        return failure(stored.error());
    if (const Result structure = checkStructure(database); !structure)
        return structure;
    if (const Result content = checkContent(database, *stored); !content)
        return content;
    if (stored->version == plan.schemas.last().version)
        return {};
    if (const Result ready = beforeMigration(); !ready)
        return ready;
    return migrate(database, stored->version, plan);
}

} // namespace trovell
