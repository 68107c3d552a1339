// SPDX-License-Identifier: MIT
//
// Whatever fails at whatever moment, the store keeps the last acknowledged state, or the one that
// was being saved.
#include "model/StoreFiles.h"
#include "model/WorkspaceStore.h"

#include "support/StoreContents.h"
#include "support/StoreFaultVfs.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using Fault = StoreFaultVfs::Fault;

namespace {

/// What a user who edits and saves has been told.
struct Session {
    StoreContents acknowledged;
    bool isOpened = false;
    int failedSaves = 0;
    /// No acknowledged save was still on its way to the disk.
    bool isOnDisk = true;
    /// What the saves that failed since then tried to store.
    QList<StoreContents> inFlight = {};

    /// Edits and saves in a row. A save that fails is rolled back; after three in a row the user
    /// gives up.
    void run(const QString& folder, const StoreFaultVfs& vfs)
    {
        auto store = WorkspaceStore::open(folder, {.vfsName = vfs.name()});
        isOpened = store.has_value();
        if (!isOpened)
            return;
        StoreContext& context = (*store)->mainContext();
        QCOMPARE(contentsOf(context), acknowledged);
        StoreEditor editor(7);
        for (int step = 0; step < 4 && inFlight.size() < 3; ++step) {
            editor.edit(context);
            const StoreContents edited = contentsOf(context);
            if (context.save()) {
                isOnDisk = isOnDisk && vfs.isSynchronized();
                acknowledged = edited;
                inFlight.clear();
            } else {
                context.rollback();
                QCOMPARE(contentsOf(context), acknowledged);
                inFlight.append(edited);
                failedSaves += 1;
            }
        }
    }

    void check(const StoreContents& stored) const
    {
        QVERIFY(stored == acknowledged || inFlight.contains(stored));
    }
};

} // namespace

class StoreFaultTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void survivesEveryFault_data();
    void survivesEveryFault();

private:
    enum class Kind { newStore, store, version1 };

    /// A folder that is empty or holds a copy of a store made before.
    [[nodiscard]] std::unique_ptr<QTemporaryDir> makeFolder(Kind kind) const;

    QTemporaryDir m_original;
    StoreContents m_originalContents;
    StoreContents m_version1Contents;
};

void StoreFaultTest::initTestCase()
{
    {
        const auto store = openStore(m_original.path());
        for (int index = 0; index < 4; ++index)
            store->mainContext().insert(makeWorkspace(u"Work"_s, index, 5));
    }
    m_originalContents = storedContents(m_original.path());
    m_version1Contents = storedContents(makeFolder(Kind::version1)->path());
}

std::unique_ptr<QTemporaryDir> StoreFaultTest::makeFolder(Kind kind) const
{
    auto folder = std::make_unique<QTemporaryDir>();
    if (kind == Kind::version1)
        copyVersion1Store(folder->path());
    if (kind == Kind::store)
        QFile::copy(StoreFiles(m_original.path()).storePath(),
                    StoreFiles(folder->path()).storePath());
    return folder;
}

void StoreFaultTest::survivesEveryFault_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("failureCount");
    QTest::addColumn<int>("kind");
    const auto addRows = [](const char* name, Fault fault, int failureCount) {
        for (const auto& [kindName, kind] :
             {std::pair("a new store", Kind::newStore), std::pair("a store", Kind::store),
              std::pair("one of version 1", Kind::version1)})
            QTest::addRow("%s, %s", name, kindName)
                << static_cast<int>(fault) << failureCount << static_cast<int>(kind);
    };
    addRows("one failure", Fault::failure, 1);
    addRows("failures from then on", Fault::failure, StoreFaultVfs::forEver);
    addRows("one torn write", Fault::tornWrite, 1);
    addRows("a full disk", Fault::diskFull, StoreFaultVfs::forEver);
}

void StoreFaultTest::survivesEveryFault()
{
    QFETCH(int, fault);
    QFETCH(int, failureCount);
    QFETCH(int, kind);
    const StoreContents contentsBefore = std::array{
        StoreContents(), m_originalContents, m_version1Contents}[static_cast<std::size_t>(kind)];
    int faultCount = 0;
    int failedSaves = 0;
    for (bool hasFired = true; hasFired; faultCount += hasFired) {
        const auto folder = makeFolder(static_cast<Kind>(kind));
        StoreFaultVfs vfs;
        Session session{.acknowledged = contentsBefore};
        vfs.arm(static_cast<Fault>(fault), faultCount + 1, failureCount);
        session.run(folder->path(), vfs);
        hasFired = vfs.hasFired();
        failedSaves += session.failedSaves;
        QVERIFY(failureCount > 1 || session.failedSaves <= 1);
        session.check(storedContents(folder->path()));
        QVERIFY(session.isOnDisk);
        if (QTest::currentTestFailed())
            qFatal("at operation %d", faultCount + 1);
        QVERIFY(hasFired || (session.isOpened && session.failedSaves == 0));
    }
    qInfo("%d faults, %d failed saves", faultCount, failedSaves);
    QVERIFY(faultCount > 50 && failedSaves > 5);
}

QTEST_GUILESS_MAIN(StoreFaultTest)
#include "StoreFaultTest.moc"
