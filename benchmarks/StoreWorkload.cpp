// SPDX-License-Identifier: MIT

#include "StoreWorkload.h"

#include "Titles.h"

#include "model/StoreFiles.h"
#include "model/TrovellSchemaV1.h"

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<WorkspaceItem> makeItem(int index)
{
    WorkspaceItemValues values;
    const QString name = u"Quarterly report %1.odt"_s.arg(index);
    values.displayName = name;
    values.sortOrder = index;
    values.isEnabled = index % 7 != 0;
    if (index % 4 == 0) {
        values.typeRawValue = rawValue(WorkspaceItemType::webLink);
        values.urlString = u"https://www.example.org/projects/trovell/%1?view=list"_s.arg(index);
    } else {
        const QString path = u"/home/anna/Documents/Projects/2024/"_s + name;
        values.typeRawValue = rawValue(WorkspaceItemType::file);
        values.urlString = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
        values.bookmarkData = QByteArray(40, 'b') + path.toUtf8();
    }
    return std::make_unique<WorkspaceItem>(values);
}

DisplayFingerprint sampleFingerprint()
{
    return {u"DEL DELL U2720Q"_s, 3840, 2160, 3840, 2160, 1, 0, 0, true};
}

std::unique_ptr<TrovellWorkspace> makeWorkspace(int number)
{
    auto workspace = std::make_unique<TrovellWorkspace>(
        WorkspaceValues{.name = u"Workspace %1"_s.arg(number), .sortOrder = number});
    for (int index = 0; index < itemsPerWorkspace; ++index)
        workspace->appendItem(makeItem(index));
    for (int index = 0; index < placementsPerWorkspace; ++index)
        workspace->appendPlacement(makeSamplePlacement(index));
    return workspace;
}

/// All columns of version 1 but the position and the checksum.
QByteArray attributesOf(SqliteDatabase& database, const QByteArray& table)
{
    QByteArray columns;
    SqliteStatement query =
        database.statement("SELECT group_concat(name) FROM pragma_table_info('" + table +
                           "') WHERE name NOT IN ('position', 'checksum')");
    if (query.step().value_or(false))
        query.read(columns);
    return columns;
}

} // namespace

Expected<std::unique_ptr<WorkspaceStore>, StoreError> openStore(const QString& folder,
                                                                bool isDurable)
{
    return WorkspaceStore::open(
        folder, {.isDurable = isDurable, .automaticSaveDelay = std::chrono::hours(1)});
}

bool createStore(const QString& folder, int workspaceCount)
{
    const auto store = openStore(folder);
    if (!store)
        return false;
    StoreContext& context = (*store)->mainContext();
    for (int number = 0; number < workspaceCount; ++number)
        context.insert(makeWorkspace(number));
    return context.save().has_value();
}

bool createVersion1Store(const QString& folder, const QString& contentFolder)
{
    const VersionedSchema schema = TrovellSchemaV1::schema();
    const auto store = WorkspaceStore::prepare(folder, {.migrationPlan = {{schema}, {}}});
    if (!store)
        return false;
    SqliteDatabase& database = *store->database;
    const QString content = StoreFiles(contentFolder).storePath();
    bool isCreated = database.execute("ATTACH '" + content.toUtf8() + "' AS content").has_value();
    for (const QString& model : schema.models) {
        const QByteArray table = model.toUtf8();
        const QByteArray columns = attributesOf(database, table);
        isCreated = isCreated &&
                    database.execute("INSERT INTO main." + table + " SELECT position," + columns +
                                     ",row_checksum(" + columns + ") FROM content." + table);
    }
    return isCreated;
}

std::unique_ptr<WindowPlacement> makeSamplePlacement(int index)
{
    return std::make_unique<WindowPlacement>(
        u"org.example.Application%1"_s.arg(index / 4), u"Application %1"_s.arg(index / 4),
        realisticTitle(index), u"AXWindow"_s, u"AXStandardWindow"_s, index,
        NormalizedFrame{0.01 * index, 0.02 * index, 0.4, 0.5},
        QRectF(38.4 * index, 43.2 * index, 1536, 1080), sampleFingerprint(), index % 5 != 0);
}

} // namespace trovell::bench
