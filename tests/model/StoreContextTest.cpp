// SPDX-License-Identifier: MIT

#include "model/StoreFiles.h"
#include "model/WorkspaceQuery.h"
#include "model/WorkspaceStore.h"

#include "support/Patience.h"
#include "support/StoreContents.h"
#include "support/StoreFaultVfs.h"

#include <QEventLoop>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace std::chrono_literals;

namespace {

QStringList namesOf(const QList<TrovellWorkspace*>& workspaces)
{
    QStringList names;
    for (const TrovellWorkspace* workspace : workspaces)
        names.append(workspace->name());
    return names;
}

/// Handles all that is posted by now in its order, the end of removed records included, which
/// only a running loop does.
void turnEventLoop()
{
    QEventLoop loop;
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    loop.exec();
}

} // namespace

class StoreContextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsEveryValue();
    void keepsWhatRandomEditsMake();
    void rollsBackToTheSameObjects();
    void removesChildrenWithTheirWorkspace();
    void refusesADuplicateIdAndRecovers();
    void forgetsWhatWasRemovedBeforeItWasSaved();
    void keepsChangesThatCannotBeSavedByThemselves();
    void announcesOncePerTurn();
    void announcesBeforeItDestroys();
    void refusesToSaveAfterAFailedRead();

private:
    [[nodiscard]] StoreContext& context() { return m_store->mainContext(); }
    TrovellWorkspace& insert(const QString& name, qint64 sortOrder, int childCount = 0)
    {
        return context().insert(makeWorkspace(name, sortOrder, childCount));
    }
    void reopen(const StoreOptions& options = {})
    {
        m_store.reset();
        m_store = openStore(m_folder->path(), options);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    StoreFaultVfs m_vfs;
    std::unique_ptr<WorkspaceStore> m_store;
};

void StoreContextTest::init()
{
    m_vfs.disarm();
    m_store.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = openStore(m_folder->path(), {.vfsName = m_vfs.name()});
}

void StoreContextTest::keepsEveryValue()
{
    TrovellWorkspace& workspace = insert(u"Ünï\u0000code 🗂"_s, -7, 5);
    workspace.setLastLaunchedAt(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 456)));
    workspace.setShortcut(ShortcutDefinition{4294967295, 6144, u"⌃⌥1"_s});
    workspace.setSortOrder(std::numeric_limits<qint64>::min());
    workspace.setCreatedAt({});
    workspace.sortedItems().first()->setBookmarkData(QByteArray(3'000'000, '\xfe'));
    workspace.sortedPlacements().first()->setAbsoluteHeight(qQNaN());
    insert({}, std::numeric_limits<qint64>::max());
    QVERIFY(context().save());
    StoreContents saved = contentsOf(context());
    reopen();
    StoreContents stored = contentsOf(context());
    // Not equal to itself, so it is compared apart.
    QVERIFY(qIsNaN(std::exchange(stored[0].placements[0].absoluteHeight, 0)));
    saved[0].placements[0].absoluteHeight = 0;
    QCOMPARE(stored, saved);
    QVERIFY(!stored[0].values.createdAt.isValid());
    QCOMPARE(stored[0].values.lastLaunchedAt->timeSpec(), Qt::UTC);
}

void StoreContextTest::keepsWhatRandomEditsMake()
{
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    StoreEditor editor(seed);
    StoreContents saved;
    for (int step = 0; step < 300; ++step) {
        editor.edit(context());
        if (step % 4 == 1) {
            context().rollback();
        } else if (step % 4 == 3) {
            QVERIFY(context().save());
            saved = contentsOf(context());
            reopen();
        } else {
            continue;
        }
        QCOMPARE(contentsOf(context()), saved);
    }
}

void StoreContextTest::rollsBackToTheSameObjects()
{
    TrovellWorkspace& workspace = insert(u"Work"_s, 0, 3);
    TrovellWorkspace& other = insert(u"Other"_s, 1, 2);
    QVERIFY(context().save());
    const StoreContents saved = contentsOf(context());
    const QList<TrovellWorkspace*> workspaces = context().workspaces();
    const QList<WorkspaceItem*> items = workspace.sortedItems();
    const QList<WindowPlacement*> placements = workspace.sortedPlacements();

    workspace.setName(u"Play"_s);
    items[2]->setDisplayName(u"Changed"_s);
    items[1]->setSortOrder(99);
    context().remove(*items[0]);
    context().remove(*placements[1]);
    workspace.appendItem(items[0]->duplicate());
    context().remove(other);
    insert(u"New"_s, 2, 1);
    QCOMPARE(namesOf(context().workspaces()), QStringList({u"Play"_s, u"New"_s}));
    QVERIFY(items[0]->isRemoved() && other.isRemoved());

    QSignalSpy itemChanges(items[2], &Record::changed);
    QSignalSpy workspaceChanges(&workspace, &Record::changed);
    QSignalSpy otherChanges(&other, &Record::changed);
    QSignalSpy contextChanges(&context(), &StoreContext::changed);
    context().rollback();
    turnEventLoop();
    QCOMPARE(contentsOf(context()), saved);
    QCOMPARE(context().workspaces(), workspaces);
    QCOMPARE(workspace.sortedItems(), items);
    QCOMPARE(workspace.sortedPlacements(), placements);
    QCOMPARE(QList({itemChanges.count(), workspaceChanges.count(), otherChanges.count(),
                    contextChanges.count()}),
             QList<qsizetype>({1, 1, 1, 1}));
    QVERIFY(!context().hasChanges());
    reopen();
    QCOMPARE(contentsOf(context()), saved);
}

void StoreContextTest::removesChildrenWithTheirWorkspace()
{
    insert(u"Work"_s, 0, 4);
    insert(u"Other"_s, 1, 2);
    QVERIFY(context().save());
    reopen();
    // Neither read nor named by anyone, the children go nevertheless.
    context().remove(*context().workspaces().first());
    QVERIFY(context().save());
    m_store.reset();
    auto database = SqliteDatabase::open(StoreFiles(m_folder->path()).storePath(), {});
    QCOMPARE((*database)->number("SELECT count(*) FROM WorkspaceItem"), 2);
    QCOMPARE((*database)->number("SELECT count(*) FROM WindowPlacement"), 2);
}

void StoreContextTest::refusesADuplicateIdAndRecovers()
{
    TrovellWorkspace& workspace = insert(u"Work"_s, 0, 1);
    QVERIFY(context().save());
    const StoreContents saved = contentsOf(context());
    workspace.setName(u"Play"_s);
    workspace.appendItem(
        std::make_unique<WorkspaceItem>(workspace.sortedItems().first()->values()));
    const auto refused = context().save();
    QVERIFY(!refused);
    QCOMPARE(refused.error(), StoreError::duplicateIdentifier);
    QCOMPARE(workspace.name(), u"Play"_s);
    context().rollback();
    QCOMPARE(contentsOf(context()), saved);
    workspace.setName(u"Rest"_s);
    QVERIFY(context().save());
    reopen();
    QCOMPARE(namesOf(context().workspaces()), QStringList{u"Rest"_s});
}

void StoreContextTest::forgetsWhatWasRemovedBeforeItWasSaved()
{
    TrovellWorkspace& workspace = insert(u"Work"_s, 0, 1);
    const QPointer<TrovellWorkspace> inserted = &insert(u"Never"_s, 1, 2);
    const QPointer<WorkspaceItem> item = workspace.sortedItems().first();
    context().remove(*inserted);
    context().remove(*item);
    QVERIFY(context().save());
    QVERIFY(inserted && item);
    // A view that still holds them may even write.
    inserted->setName(u"Late"_s);
    item->setDisplayName(u"Late"_s);
    QVERIFY(!context().hasChanges());
    turnEventLoop();
    QVERIFY(!inserted && !item);
    QCOMPARE(workspace.itemCount(), 0);
    reopen();
    QCOMPARE(namesOf(context().workspaces()), QStringList{u"Work"_s});
}

void StoreContextTest::keepsChangesThatCannotBeSavedByThemselves()
{
    reopen({.vfsName = m_vfs.name(), .automaticSaveDelay = 1ms});
    QSignalSpy failures(&context(), &StoreContext::automaticSaveFailed);
    m_vfs.arm(StoreFaultVfs::Fault::diskFull, 1, StoreFaultVfs::forEver);
    TrovellWorkspace& workspace = insert(u"Work"_s, 0, 1);
    QTRY_COMPARE(failures.count(), 1);
    QCOMPARE(failures.first().first().value<StoreError>(), StoreError::diskFull);
    QVERIFY(context().hasChanges());
    m_vfs.disarm();
    workspace.setName(u"Play"_s);
    QTRY_VERIFY(!context().hasChanges());
    reopen();
    QCOMPARE(namesOf(context().workspaces()), QStringList{u"Play"_s});
}

void StoreContextTest::announcesOncePerTurn()
{
    WorkspaceQuery query(context());
    QSignalSpy lists(&query, &WorkspaceQuery::listChanged);
    for (int index = 0; index < 5; ++index)
        insert(QString::number(index), index);
    QCOMPARE(query.workspaces().size(), 5);
    QCOMPARE(lists.count(), 0);
    turnEventLoop();
    QCOMPARE(lists.count(), 1);

    const QList<TrovellWorkspace*> workspaces = query.workspaces();
    workspaces[0]->setName(u"renamed"_s);
    turnEventLoop();
    QCOMPARE(lists.count(), 1);
    for (TrovellWorkspace* workspace : workspaces)
        workspace->setSortOrder(10 - workspace->sortOrder());
    turnEventLoop();
    QCOMPARE(lists.count(), 2);
    QCOMPARE(query.workspaces().first(), workspaces.last());
    context().rollback();
    turnEventLoop();
    QCOMPARE(lists.count(), 3);
    QVERIFY(query.workspaces().isEmpty());

    TrovellWorkspace& workspace = insert(u"Work"_s, 0, 1);
    turnEventLoop();
    QSignalSpy updates(&query, &WorkspaceQuery::updatedAtChanged);
    workspace.sortedItems().first()->setDisplayName(u"Changed"_s);
    turnEventLoop();
    QCOMPARE(updates.count(), 0);
    workspace.setUpdatedAt(workspace.updatedAt().addMSecs(1));
    turnEventLoop();
    QCOMPARE(updates.count(), 1);
    // Whoever leaves takes a global shortcut along.
    context().remove(workspace);
    turnEventLoop();
    QCOMPARE(updates.count(), 2);
}

void StoreContextTest::announcesBeforeItDestroys()
{
    WorkspaceQuery query(context());
    for (const bool isStored : {true, false}) {
        const QPointer<TrovellWorkspace> workspace = &insert(u"Work"_s, 0, 1);
        QVERIFY(!isStored || context().save());
        turnEventLoop();
        bool wasAlive = false;
        connect(&query, &WorkspaceQuery::listChanged, workspace, [&] { wasAlive = true; });
        if (isStored)
            context().remove(*workspace);
        QVERIFY(!isStored || context().save());
        context().rollback();
        turnEventLoop();
        QVERIFY(wasAlive && !workspace);
    }
}

void StoreContextTest::refusesToSaveAfterAFailedRead()
{
    // More than SQLite keeps in memory.
    for (int index = 0; index < 15; ++index)
        insert(QString::number(index), index, 60);
    QVERIFY(context().save());
    const StoreContents saved = contentsOf(context());
    reopen({.vfsName = m_vfs.name()});
    QSignalSpy failures(&context(), &StoreContext::readFailed);

    TrovellWorkspace& workspace = *context().workspaces().first();
    m_vfs.arm(StoreFaultVfs::Fault::readFailure, 1, StoreFaultVfs::forEver);
    QVERIFY(workspace.sortedItems().isEmpty());
    QCOMPARE(failures.count(), 1);
    QCOMPARE(workspace.itemCount(), 60);
    m_vfs.disarm();
    // An editor that took the list for empty now writes what it thinks is all.
    workspace.appendItem(std::make_unique<WorkspaceItem>(WorkspaceItemValues{}));
    const auto refused = context().save();
    QVERIFY(!refused);
    QCOMPARE(refused.error(), StoreError::diskFailure);
    context().rollback();
    QCOMPARE(contentsOf(context()), saved);
    reopen();
    QCOMPARE(contentsOf(context()), saved);
}

QTEST_GUILESS_MAIN(StoreContextTest)
#include "StoreContextTest.moc"
