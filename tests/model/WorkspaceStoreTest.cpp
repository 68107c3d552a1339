#include "model/WorkspaceStore.h"
#include "model/StoreFiles.h"
#include "model/TrovellSchemaV1.h"

#include "support/StoreContents.h"
#include "support/StoreFaultVfs.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <sqlite3.h>
#include <sys/stat.h>

using namespace trovell;

namespace {

/// The permission bits; 0 when there is no such file.
mode_t modeOf(const QString& path)
{
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777u : 0u;
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

void execute(const QString& path, const QByteArray& sql)
{
    sqlite3* database = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &database);
    if (sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql.constData(), sqlite3_errmsg(database));
    sqlite3_close(database);
}

/// A version 2 that adds a column and a table.
MigrationPlan planWithVersion2()
{
    VersionedSchema second = TrovellSchemaV1::schema();
    second.version = QVersionNumber(2, 0, 0);
    const QByteArray table = "CREATE TABLE Tag(position INTEGER PRIMARY KEY, name TEXT NOT NULL,"
                             " checksum INTEGER NOT NULL) STRICT";
    const QByteArray index = "CREATE INDEX WorkspaceBySymbol ON TrovellWorkspace(symbolName)";
    second.models.append(u"Tag"_qs);
    second.statements += {table, index};
    const MigrationStage stage{
        QVersionNumber(1, 0, 0),
        QVersionNumber(2, 0, 0),
        {table, index, "INSERT INTO Tag(name, checksum) VALUES('new', row_checksum('new'))"}};
    return {{TrovellSchemaV1::schema(), second}, {stage}};
}

} // namespace

class WorkspaceStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsItsFilesPrivate();
    void refusesASecondOpening();
    void refusesWhatIsNoStore();
    void tellsAnEmptiedStoreFromANewFile();
    void refusesReadOnlyPlaces();
    void refusesPlacesThatCannotBe();
    void refusesAFullDisk();
    void refusesUnknownVersions();
    void migrates();
    void leavesTheStoreWhenAMigrationFails();

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
        store->mainContext().insert(makeWorkspace(u"Work"_qs, 0, 3));
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_folder;
    QString m_path;
};

void WorkspaceStoreTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_folder = m_directory->filePath(u"share/trovell"_qs);
    m_path = StoreFiles(m_folder).storePath();
}

void WorkspaceStoreTest::keepsItsFilesPrivate()
{
    for (const mode_t mask : {0u, 0777u}) {
        init();
        const mode_t previous = ::umask(mask);
        const auto store = WorkspaceStore::open(m_folder);
        QVERIFY(store);
        (*store)->mainContext().insert(makeWorkspace(u"Work"_qs, 0, 3));
        QVERIFY((*store)->mainContext().save());
        ::umask(previous);
        QCOMPARE(modeOf(m_folder), 0700u);
        QCOMPARE(modeOf(QFileInfo(m_folder).path()), 0700u);
        // While the store is open its journal is there too.
        const QFileInfoList files = QDir(m_folder).entryInfoList(QDir::Files);
        QCOMPARE(files.size(), 3);
        for (const QFileInfo& file : files)
            QCOMPARE(modeOf(file.filePath()), 0600u);
    }
}

void WorkspaceStoreTest::refusesASecondOpening()
{
    makeStore();
    const auto store = openStore(m_folder);
    QCOMPARE(openingError(), StoreError::inUse);
    store->mainContext().insert(makeWorkspace(u"More"_qs, 1, 1));
    QVERIFY(store->mainContext().save());
}

void WorkspaceStoreTest::refusesWhatIsNoStore()
{
    QVERIFY(QDir().mkpath(m_folder));
    for (const QByteArray& content :
         {QByteArray("workspaces\n"), QByteArray("workspaces\n").repeated(10'000),
          QByteArray(8192, '\0'), QByteArray("SQLite format 3\0", 16)}) {
        writeFile(m_path, content);
        QCOMPARE(openingError(), StoreError::notAStore);
    }
    QVERIFY(QFile::remove(m_path));
    execute(m_path, "CREATE TABLE TrovellWorkspace(id)");
    QCOMPARE(openingError(), StoreError::notAStore);
}

void WorkspaceStoreTest::tellsAnEmptiedStoreFromANewFile()
{
    QVERIFY(QDir().mkpath(m_folder));
    writeFile(m_path, {});
    makeStore();
    QCOMPARE(storedContents(m_folder).size(), 1);
    QCOMPARE(modeOf(m_path), 0600u);
    writeFile(m_path, {});
    QCOMPARE(openingError(), StoreError::damaged);
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

void WorkspaceStoreTest::refusesPlacesThatCannotBe()
{
    QVERIFY(QDir().mkpath(m_path));
    QCOMPARE(openingError(), StoreError::inaccessible);
    const QString file = m_directory->filePath(u"file"_qs);
    writeFile(file, "content");
    for (const QString& folder : {file, file + u"/folder"_qs, u"/proc/trovell"_qs}) {
        const auto store = WorkspaceStore::open(folder);
        QVERIFY(!store);
        QCOMPARE(store.error(), StoreError::inaccessible);
    }
    QCOMPARE(readFile(file), QByteArray("content"));
}

void WorkspaceStoreTest::refusesAFullDisk()
{
    StoreFaultVfs vfs;
    vfs.arm(StoreFaultVfs::Fault::diskFull, 1, StoreFaultVfs::forEver);
    const auto created = WorkspaceStore::open(m_folder, {.vfsName = vfs.name()});
    QVERIFY(!created);
    QCOMPARE(created.error(), StoreError::diskFull);
    vfs.disarm();
    makeStore();
    vfs.arm(StoreFaultVfs::Fault::diskFull, 1, StoreFaultVfs::forEver);
    QCOMPARE(openingError({.vfsName = vfs.name()}), StoreError::diskFull);
    vfs.disarm();
    QCOMPARE(openingError({.vfsName = vfs.name()}), std::nullopt);
}

void WorkspaceStoreTest::refusesUnknownVersions()
{
    makeStore();
    for (const char* version : {"2000000", "1000001", "999999", "0", "-1"}) {
        execute(m_path, QByteArray("PRAGMA user_version=") + version);
        QCOMPARE(openingError(), StoreError::unknownSchema);
    }
    execute(m_path, "PRAGMA user_version=1000000");
    QCOMPARE(openingError(), std::nullopt);

    MigrationPlan plan = planWithVersion2();
    plan.stages.clear();
    QCOMPARE(openingError({.migrationPlan = plan}), StoreError::unknownSchema);
}

void WorkspaceStoreTest::migrates()
{
    makeStore();
    const StoreContents contents = storedContents(m_folder);
    const StoreOptions options{.migrationPlan = planWithVersion2()};
    QCOMPARE(contentsOf(openStore(m_folder, options)->mainContext()), contents);
    QCOMPARE(contentsOf(openStore(m_folder, options)->mainContext()), contents);
    QCOMPARE(openingError(), StoreError::unknownSchema);
}

void WorkspaceStoreTest::leavesTheStoreWhenAMigrationFails()
{
    makeStore();
    const StoreContents contents = storedContents(m_folder);
    // A stage that does not arrive at its schema, and one that breaks off.
    MigrationPlan plan = planWithVersion2();
    plan.stages.first().statements.removeAt(1);
    QCOMPARE(openingError({.migrationPlan = plan}), StoreError::damaged);
    plan.stages.first().statements.append("INSERT INTO Nowhere VALUES(1)");
    QCOMPARE(openingError({.migrationPlan = plan}), StoreError::damaged);
    QCOMPARE(storedContents(m_folder), contents);
}

QTEST_GUILESS_MAIN(WorkspaceStoreTest)
#include "WorkspaceStoreTest.moc"
