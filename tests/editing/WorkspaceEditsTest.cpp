// SPDX-License-Identifier: MIT

#include "editing/WorkspaceEdits.h"

#include "support/FakeResourceSystem.h"
#include "support/StoreFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using trovell::test::StoreFixture;

namespace {

/// A workspace of two files and a window, in the editor.
struct Editing : StoreFixture {
    Editing()
    {
        addItem(workspace, WorkspaceItemType::file, u"a"_s).setSortOrder(-4);
        addItem(workspace, WorkspaceItemType::file, u"b"_s).setSortOrder(70);
        addPlacement(workspace, u"old"_s);
        target.emplace(&workspace);
        edits = target->edits;
    }

    auto saveEdited() { return saveEdits(*target, edits, context()); }
    QString refusal()
    {
        const StoreContents before = contents();
        const auto saved = saveEdited();
        const bool isUntouched = !context().hasChanges() && contents() == before;
        return saved || !isUntouched ? QString() : description(saved.error()).productText();
    }

    TrovellWorkspace& workspace = addWorkspace(u"Work"_s);
    std::optional<EditedWorkspace> target;
    WorkspaceEdits edits;
};

} // namespace

class WorkspaceEditsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsItemsTheSameAndNumbersThem()
    {
        Editing editing;
        const WorkspaceContents before = editing.contents().first();
        editing.edits.items[1].isEnabled = false;
        editing.edits.basics.name = u" Other "_s;
        editing.edits.basics.choices.shortcutIndex = 2;
        QTest::qSleep(2); // times are stored to the millisecond
        QCOMPARE(*editing.saveEdited(), &editing.workspace);
        const WorkspaceContents after = editing.contents().first();
        QCOMPARE(after.values.name, u"Other"_s);
        QCOMPARE(editing.workspace.shortcut(), shortcuts()[2]);
        QVERIFY(after.values.updatedAt > before.values.updatedAt);
        QCOMPARE(after.placements, before.placements);
        for (qsizetype position = 0; position < 2; ++position) {
            QCOMPARE(after.items[position].id, before.items[position].id);
            QCOMPARE(after.items[position].sortOrder, position);
            QCOMPARE(after.items[position].isEnabled, position == 0);
            QVERIFY(after.items[position].createdAt > before.items[position].createdAt);
        }
    }

    void makesANewWorkspaceBehindTheOthers()
    {
        Editing editing;
        editing.target.emplace(nullptr);
        editing.edits = {.basics = {u" Evening"_s, {u"hammer"_s, u"green"_s, 1}}};
        const auto made = editing.saveEdited();
        QVERIFY(made);
        const WorkspaceValues values = editing.contents().last().values;
        QCOMPARE(values.id, (*made)->id());
        QCOMPARE(values.name, u"Evening"_s);
        QCOMPARE(values.symbolName, u"hammer"_s);
        QCOMPARE(values.accentIdentifier, u"green"_s);
        QCOMPARE(values.sortOrder, 1);
        QCOMPARE(values.updatedAt, values.createdAt);
        QVERIFY(values.shortcutData && !values.lastLaunchedAt);
    }

    void clearsOrReplacesTheLayout()
    {
        Editing editing;
        CapturedApplication application;
        application.windows.resize(2);
        application.windows[0].windowTitle = u"new"_s;
        application.windows[1].isIncluded = false;
        editing.edits.capturedApplications = {application};
        editing.edits.layoutChange = LayoutChange::replaceLayout;
        QVERIFY(editing.saveEdited());
        QCOMPARE(editing.contents()[0].placements.size(), 1);
        QCOMPARE(editing.contents()[0].placements[0].windowTitleHint, u"new"_s);
        editing.edits.layoutChange = LayoutChange::clearLayout;
        QVERIFY(editing.saveEdited());
        QVERIFY(editing.contents()[0].placements.isEmpty());
    }

    void savesAllOrNothing()
    {
        Editing editing;
        editing.addWorkspace(u"Holder"_s).setShortcut(shortcuts()[1]);
        editing.save();
        editing.edits.basics.name = u"Other"_s;
        editing.edits.items.removeFirst();
        editing.edits.layoutChange = LayoutChange::clearLayout;
        editing.edits.basics.choices.shortcutIndex = 1;
        QCOMPARE(editing.refusal(), shortcutConflictText().productText());
        editing.edits.basics.choices.shortcutIndex = 2;
        editing.refuseSaving();
        QCOMPARE(editing.refusal(), description(StoreError::diskFull).productText());
        editing.allowSaving();
        QVERIFY(editing.saveEdited());
        // Its own shortcut is no conflict.
        QVERIFY(editing.saveEdited());
        editing.target->isComplete = false;
        QVERIFY(editing.refusal().contains(u"could not be read"));
        QVERIFY(deleted(editing).contains(u"deleted"));
    }

    void describesWhatIsAdded()
    {
        const FakeResourceSystem resources;
        const auto item = [&](const QString& url, WorkspaceItemType type) {
            return editableItem(QUrl(url), type, resources);
        };
        const auto link = item(u"https://example.org/a"_s, WorkspaceItemType::webLink);
        QCOMPARE(link.displayName, u"example.org"_s);
        QVERIFY(!link.bookmarkData && !link.bundleIdentifier && !link.applicationPath);
        QCOMPARE(item(u"mailto:me"_s, WorkspaceItemType::webLink).displayName, u"mailto:me"_s);
        const auto file = item(u"file:///home/me/found%20again.txt"_s, WorkspaceItemType::file);
        QCOMPARE(file.displayName, u"found again.txt"_s);
        QVERIFY(file.bookmarkData && !file.applicationPath);
        QCOMPARE(item(u"file:///"_s, WorkspaceItemType::folder).displayName, u"/"_s);
    }

private:
    static QString deleted(Editing& editing)
    {
        editing.context().remove(editing.workspace);
        editing.save();
        return editing.refusal();
    }
};

QTEST_GUILESS_MAIN(WorkspaceEditsTest)
#include "WorkspaceEditsTest.moc"
