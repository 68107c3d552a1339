// SPDX-License-Identifier: MIT

#include "model/WorkspaceStore.h"
#include "model/StoreFiles.h"
#include "model/TrovellMigrationPlan.h"

#include "lab/Files.h"
#include "support/StoreContents.h"
#include "support/StoreFaultVfs.h"
#include "windows/WindowPlacementSnapshot.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

namespace {

/// For the owner alone.
constexpr QFile::Permissions privateFile{0x6600};
constexpr QFile::Permissions privateFolder{0x7700};

void execute(const QString& path, const QByteArray& sql)
{
    const auto database = SqliteDatabase::open(path, {});
    if (!database || !(*database)->execute(sql))
        qFatal("%s", sql.constData());
}

/// A version 3 that adds a column and a table.
MigrationPlan planWithVersion3()
{
    MigrationPlan plan = TrovellMigrationPlan::plan();
    VersionedSchema third = plan.schemas.last();
    third.version = QVersionNumber(3, 0, 0);
    const QByteArray table = "CREATE TABLE Tag(position INTEGER PRIMARY KEY, name TEXT NOT NULL,"
                             " checksum INTEGER NOT NULL) STRICT";
    const QByteArray index = "CREATE INDEX WorkspaceBySymbol ON TrovellWorkspace(symbolName)";
    third.models.append(u"Tag"_s);
    third.statements += {table, index};
    plan.schemas.append(third);
    plan.stages.append(
        {QVersionNumber(2, 0, 0),
         QVersionNumber(3, 0, 0),
         {table, index, "INSERT INTO Tag(name, checksum) VALUES('new', row_checksum('new'))"}});
    return plan;
}

} // namespace

class WorkspaceStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsItsFilesPrivate();
    void refusesWhatIsNoStore();
    void tellsAnEmptiedStoreFromANewFile();
    void refusesReadOnlyPlaces();
    void refusesAFullDisk();
    void refusesUnknownVersions();
    void migratesAllOrNothing();
    void readsStoresOfVersion1();

private:
    /// Also checks that a refusal changes nothing.
    [[nodiscard]] std::optional<StoreError> openingError(const StoreOptions& options = {}) const
    {
        const QByteArray before = readFile(m_path);
        const auto store = WorkspaceStore::open(m_folder, options);
        if (!store && readFile(m_path) != before)
            qFatal("the file was changed");
        return store ? std::nullopt : std::optional(store.error());
    }
    void makeStore()
    {
        const auto store = openStore(m_folder);
        store->mainContext().insert(makeWorkspace(u"Work"_s, 0, 3));
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_folder;
    QString m_path;
};

void WorkspaceStoreTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_folder = m_directory->filePath(u"share/trovell"_s);
    m_path = StoreFiles(m_folder).storePath();
}

void WorkspaceStoreTest::keepsItsFilesPrivate()
{
    const mode_t previous = ::umask(0);
    const auto store = openStore(m_folder);
    store->mainContext().insert(makeWorkspace(u"Work"_s, 0, 3));
    QVERIFY(store->mainContext().save());
    ::umask(previous);
    QCOMPARE(QFile::permissions(m_folder), privateFolder);
    QCOMPARE(QFile::permissions(QFileInfo(m_folder).path()), privateFolder);
    // While the store is open its journal is there too.
    const QFileInfoList files = QDir(m_folder).entryInfoList(QDir::Files);
    QCOMPARE(files.size(), 3);
    for (const QFileInfo& file : files)
        QCOMPARE(file.permissions(), privateFile);
}

void WorkspaceStoreTest::refusesWhatIsNoStore()
{
    for (const QByteArray& content :
         {QByteArray("workspaces\n"), QByteArray("workspaces\n").repeated(10'000),
          QByteArray(8192, '\0'), QByteArray("SQLite format 3\0", 16)}) {
        writeFile(m_path, content);
        QCOMPARE(openingError(), StoreError::notAStore);
    }
    writeFile(m_path, {});
    execute(m_path, "CREATE TABLE TrovellWorkspace(id)");
    QCOMPARE(openingError(), StoreError::notAStore);
}

void WorkspaceStoreTest::tellsAnEmptiedStoreFromANewFile()
{
    writeFile(m_path, {});
    makeStore();
    QCOMPARE(storedContents(m_folder).size(), 1);
    QCOMPARE(QFile::permissions(m_path), privateFile);
    writeFile(m_path, {});
    QCOMPARE(openingError(), StoreError::damaged);
}

void WorkspaceStoreTest::refusesReadOnlyPlaces()
{
    makeStore();
    StoreFaultVfs vfs;
    vfs.isReadOnly = true;
    QCOMPARE(openingError({.vfsName = vfs.name()}), StoreError::readOnly);
    vfs.isReadOnly = false;
    vfs.isFolderReadOnly = true;
    QCOMPARE(openingError({.vfsName = vfs.name()}), StoreError::inaccessible);
    vfs.isFolderReadOnly = false;
    QCOMPARE(openingError({.vfsName = vfs.name()}), std::nullopt);
}

void WorkspaceStoreTest::refusesAFullDisk()
{
    StoreFaultVfs vfs;
    for (const bool isNew : {true, false}) {
        vfs.arm(StoreFaultVfs::Fault::diskFull, 1, StoreFaultVfs::forEver);
        QCOMPARE(openingError({.vfsName = vfs.name()}), StoreError::diskFull);
        vfs.disarm();
        if (isNew)
            makeStore();
        QCOMPARE(openingError({.vfsName = vfs.name()}), std::nullopt);
    }
}

void WorkspaceStoreTest::refusesUnknownVersions()
{
    makeStore();
    for (const char* version : {"3000000", "1000001", "999999", "0", "-1"}) {
        execute(m_path, QByteArray("PRAGMA user_version=") + version);
        QCOMPARE(openingError(), StoreError::unknownSchema);
    }
    execute(m_path, "PRAGMA user_version=2000000");
    QCOMPARE(openingError(), std::nullopt);

    MigrationPlan plan = planWithVersion3();
    plan.stages.clear();
    QCOMPARE(openingError({.migrationPlan = plan}), StoreError::unknownSchema);
}

void WorkspaceStoreTest::migratesAllOrNothing()
{
    makeStore();
    const StoreContents contents = storedContents(m_folder);
    // A stage that does not arrive at its schema, and one that breaks off.
    MigrationPlan plan = planWithVersion3();
    plan.stages.last().statements.removeAt(1);
    QCOMPARE(openingError({.migrationPlan = plan}), StoreError::damaged);
    plan.stages.last().statements.append("INSERT INTO Nowhere VALUES(1)");
    QCOMPARE(openingError({.migrationPlan = plan}), StoreError::damaged);
    QCOMPARE(storedContents(m_folder), contents);

    const StoreOptions options{.migrationPlan = planWithVersion3()};
    for (const bool isMigrated : {false, true})
        QVERIFY2(contentsOf(openStore(m_folder, options)->mainContext()) == contents,
                 isMigrated ? "again" : "at first");
    QCOMPARE(openingError(), StoreError::unknownSchema);
}

void WorkspaceStoreTest::readsStoresOfVersion1()
{
    // As the program wrote it before it remembered more of a window than its frame.
    const QByteArray stored = readFile(QFINDTESTDATA("../../tests/model/data/version1.store"));
    const QString copy = StoreFiles(m_folder).copyPath();
    writeFile(m_path, stored);
    {
        const auto store = openStore(m_folder);
        const QList<TrovellWorkspace*> workspaces = store->mainContext().workspaces();
        QCOMPARE(workspaces.size(), 3);
        for (const TrovellWorkspace* workspace : workspaces) {
            const auto same = makeWorkspace(workspace->name(), workspace->sortOrder(), 3);
            const auto items = workspace->sortedItems();
            const auto placements = workspace->sortedPlacements();
            QCOMPARE(items.size(), 3);
            QCOMPARE(placements.size(), 3);
            for (qsizetype index = 0; index < 3; ++index) {
                WorkspaceItemValues item = same->sortedItems().at(index)->values();
                item.id = items.at(index)->id();
                item.createdAt = items.at(index)->createdAt();
                QCOMPARE(items.at(index)->values(), item);
                WindowPlacementValues placement = same->sortedPlacements().at(index)->values();
                placement.id = placements.at(index)->id();
                QCOMPARE(placements.at(index)->values(), placement);
                // It comes back as it did then.
                const auto snapshot = makeSnapshot(*placements.at(index));
                QVERIFY(!snapshot.states && !snapshot.virtualDesktop && !snapshot.stackingIndex);
            }
        }
        QCOMPARE(QFile::permissions(copy), privateFile);
    }
    // What it was before stays until the new one has proved itself.
    const QString before = m_directory->filePath(u"before"_s);
    QDir().mkpath(before);
    QVERIFY(QFile::copy(copy, StoreFiles(before).storePath()));
    const StoreContents contents = storedContents(m_folder);
    QVERIFY(!QFile::exists(copy));
    QCOMPARE(storedContents(before), contents);

    // Without room for the copy nothing is changed.
    writeFile(m_path, stored);
    QDir().mkpath(copy);
    QVERIFY(openingError());
}

QTEST_GUILESS_MAIN(WorkspaceStoreTest)
#include "WorkspaceStoreTest.moc"
