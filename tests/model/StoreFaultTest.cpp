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
    /// A folder that is empty or holds a copy of the store made at the beginning.
    [[nodiscard]] std::unique_ptr<QTemporaryDir> makeFolder(bool isNew) const;

    QTemporaryDir m_original;
    StoreContents m_originalContents;
};

void StoreFaultTest::initTestCase()
{
    {
        const auto store = openStore(m_original.path());
        for (int index = 0; index < 4; ++index)
            store->mainContext().insert(makeWorkspace(u"Work"_s, index, 5));
    }
    m_originalContents = storedContents(m_original.path());
}

std::unique_ptr<QTemporaryDir> StoreFaultTest::makeFolder(bool isNew) const
{
    auto folder = std::make_unique<QTemporaryDir>();
    if (!isNew)
        QFile::copy(StoreFiles(m_original.path()).storePath(),
                    StoreFiles(folder->path()).storePath());
    return folder;
}

void StoreFaultTest::survivesEveryFault_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("failureCount");
    QTest::addColumn<bool>("isNew");
    const auto addRows = [](const char* name, Fault fault, int failureCount) {
        for (const bool isNew : {false, true})
            QTest::addRow("%s, %s store", name, isNew ? "new" : "old")
                << static_cast<int>(fault) << failureCount << isNew;
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
    QFETCH(bool, isNew);
    int faultCount = 0;
    int failedSaves = 0;
    for (bool hasFired = true; hasFired; faultCount += hasFired) {
        const auto folder = makeFolder(isNew);
        StoreFaultVfs vfs;
        Session session{.acknowledged = isNew ? StoreContents() : m_originalContents};
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
