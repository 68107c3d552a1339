// SPDX-License-Identifier: MIT

#include "editing/WorkspaceCommands.h"

#include "editing/Reorder.h"
#include "support/StoreFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using trovell::test::StoreFixture;

namespace {

/// Workspaces of these names, one character each.
struct Desk : StoreFixture {
    explicit Desk(const QString& listedNames)
    {
        for (const QChar name : listedNames)
            addWorkspace(name);
    }

    [[nodiscard]] TrovellWorkspace& at(qsizetype row) { return *context().workspaces().at(row); }
    [[nodiscard]] QString names()
    {
        QString names;
        for (const WorkspaceContents& workspace : contents())
            names += workspace.values.name;
        return names;
    }
    bool move(int row, int target)
    {
        return moveWorkspace(context(), at(row).id(), at(target).id()).has_value();
    }
    bool moveBy(int row, int step)
    {
        return moveWorkspaceBy(context(), at(row).id(), step).has_value();
    }
};

} // namespace

class WorkspaceCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void duplicatesAllButTheShortcut()
    {
        Desk desk(u"AB"_s);
        TrovellWorkspace& source = desk.at(0);
        source.setShortcut(ShortcutDefinition{18, 0x1800, u"⌃⌥1"_s});
        desk.addItem(source, WorkspaceItemType::folder, u"Papers"_s).setTypeRawValue(u"later"_s);
        desk.addPlacement(source, u"editor"_s).setDisplayFingerprintData("unreadable");
        desk.save();
        const StoreContents before = desk.contents();
        for (const int place : {2, 3}) {
            const auto copy = duplicateWorkspace(desk.context(), source);
            QVERIFY(copy && (*copy)->isStored());
            QCOMPARE((*copy)->sortOrder(), place);
        }
        const StoreContents after = desk.contents();
        QCOMPARE(after.first(2), before);
        WorkspaceContents copy = after.last();
        QCOMPARE(copy.values.name, u"A Copy"_s);
        QVERIFY(!copy.values.shortcutData);
        const QUuid itemId = std::exchange(copy.items[0].id, before[0].items[0].id);
        const QUuid placementId = std::exchange(copy.placements[0].id, before[0].placements[0].id);
        QVERIFY(itemId != copy.items[0].id && placementId != copy.placements[0].id);
        copy.items[0].createdAt = before[0].items[0].createdAt;
        QCOMPARE(copy.items, before[0].items);
        QCOMPARE(copy.placements, before[0].placements);
    }

    void reorders_data()
    {
        using Move = std::function<bool(Desk&)>;
        QTest::addColumn<Move>("move");
        QTest::addColumn<QString>("order");
        const auto row = [](const char* name, const QString& order, const Move& move) {
            QTest::newRow(name) << move << order;
        };
        row("down", u"BACD"_s, [](Desk& desk) { return desk.move(0, 2); });
        row("onto the last", u"BCAD"_s, [](Desk& desk) { return desk.move(0, 3); });
        row("up", u"ADBC"_s, [](Desk& desk) { return desk.move(3, 1); });
        row("onto itself", u"ABCD"_s, [](Desk& desk) { return desk.move(1, 1); });
        row("by one to the end", u"ABDC"_s, [](Desk& desk) { return desk.moveBy(2, 1); });
        row("by one to the start", u"BACD"_s, [](Desk& desk) { return desk.moveBy(1, -1); });
    }

    void reorders()
    {
        QFETCH(std::function<bool(Desk&)>, move);
        QFETCH(QString, order);
        Desk desk(u"ABCD"_s);
        desk.at(3).setSortOrder(70);
        desk.save();
        const QDateTime before = QDateTime::currentDateTimeUtc();
        QVERIFY(move(desk));
        QCOMPARE(desk.names(), order);
        for (int row = 0; row < 4; ++row) {
            QCOMPARE(desk.at(row).sortOrder(), row);
            QVERIFY(desk.at(row).updatedAt() >= before);
        }
    }

    void stopsAtTheEnds()
    {
        Desk desk(u"AB"_s);
        const StoreContents before = desk.contents();
        QVERIFY(desk.moveBy(0, -1) && desk.moveBy(1, 1));
        QVERIFY(moveWorkspaceBy(desk.context(), QUuid::createUuid(), 1));
        QCOMPARE(desk.contents(), before);
        QList<int> list{1, 2};
        QVERIFY(!moveBefore(list, 0, 2) && !moveBefore(list, -1, 0));
    }

    void deletesRenamesAndClears()
    {
        Desk desk(u"ABC"_s);
        QVERIFY(deleteWorkspace(desk.context(), desk.at(1)));
        QCOMPARE(desk.names(), u"AC"_s);
        QCOMPARE(desk.at(1).sortOrder(), 2); // no renumbering
        QVERIFY(renameWorkspace(desk.context(), desk.at(1), u" \tWork\n"_s));
        QCOMPARE(desk.at(1).name(), u"Work"_s);
        desk.addItem(desk.at(0), WorkspaceItemType::folder, u"Papers"_s);
        desk.addPlacement(desk.at(0), u"editor"_s);
        QVERIFY(clearSavedLayout(desk.context(), desk.at(0)));
        QCOMPARE(desk.at(0).placementCount(), 0);
        QCOMPARE(desk.at(0).itemCount(), 1);
    }

    void leavesEverythingAsItWasWhenItFails()
    {
        Desk desk(u"ABC"_s);
        TrovellWorkspace& workspace = desk.at(1);
        desk.addItem(workspace, WorkspaceItemType::folder, u"Papers"_s);
        desk.addPlacement(workspace, u"editor"_s);
        const StoreContents before = desk.contents();
        desk.refuseSaving();
        StoreContext& context = desk.context();
        const auto fails = [&](const auto& written) {
            return !written && written.error() == StoreError::diskFull && !context.hasChanges() &&
                   desk.contents() == before;
        };
        QVERIFY(fails(createWorkspace(context, u"D"_s)));
        QVERIFY(fails(duplicateWorkspace(context, workspace)));
        QVERIFY(fails(deleteWorkspace(context, workspace)));
        QVERIFY(fails(clearSavedLayout(context, workspace)));
        QVERIFY(fails(renameWorkspace(context, workspace, u"D"_s)));
        QVERIFY(fails(moveWorkspace(context, workspace.id(), desk.at(0).id())));
        QVERIFY(fails(moveWorkspaceBy(context, workspace.id(), 1)));
        QVERIFY(!workspace.isRemoved());
    }
};

QTEST_GUILESS_MAIN(WorkspaceCommandsTest)
#include "WorkspaceCommandsTest.moc"
