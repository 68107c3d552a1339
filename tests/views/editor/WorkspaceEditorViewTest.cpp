// SPDX-License-Identifier: MIT

#include "views/editor/WorkspaceEditorView.h"

#include "support/Patience.h"
#include "support/StoreContents.h"
#include "views/editor/AddWebLinkView.h"
#include "views/editor/EditorItemList.h"
#include "views/editor/EditorItemRow.h"
#include "views/style/Picker.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;

namespace {

const QString notSaved = u"Workspace Could Not Be Saved"_s;

/// An open editor over the fixture's window, and a panel that chooses `chosen`.
struct OpenEditor {
    explicit OpenEditor(ViewFixture& fixture, TrovellWorkspace* workspace = nullptr)
    {
        fixture.window().show();
        const OpenPanel panel = [this](const OpenPanelRequest& request, QWidget*,
                                       const ChosenURLs& use) {
            asked = request;
            use(chosen);
        };
        view = new WorkspaceEditorView(fixture.environment(), workspace, &fixture.window(), panel);
        QObject::connect(view, &WorkspaceEditorView::saved, view,
                         [this](TrovellWorkspace* result) { saved = result; });
        view->open();
        view->activateWindow();
    }

    QLineEdit& name() const { return *find<QLineEdit>(*view, u"Workspace name"_s); }
    EditorItemList& list() const { return *view->findChild<EditorItemList*>(); }
    QList<EditorItemRow*> rows() const { return list().findChildren<EditorItemRow*>(); }
    bool shows(const QString& text) const { return find<QLabel>(*view, text) != nullptr; }
    QStringList save() const
    {
        click(*view, u"Save"_s);
        return answeredAlert(*view);
    }

    /// One character each.
    QString names() const
    {
        QString names;
        for (const EditableWorkspaceItem& item : list().items())
            names += item.displayName;
        return names;
    }

    void add(const QString& kind) const
    {
        const auto actions = view->findChild<QMenu*>()->actions();
        const auto action = std::ranges::find(actions, kind, &QAction::text);
        QVERIFY(action != actions.end());
        (*action)->trigger();
    }

    QPoint middleOf(int row) const
    {
        const int height = list().height() / int(list().items().size());
        return {list().width() / 2, row * height + height / 2};
    }

    void drag(int row, int target) const
    {
        trovell::test::drag(*list().viewport(), middleOf(row), middleOf(target));
    }

    QPointer<WorkspaceEditorView> view;
    QPointer<TrovellWorkspace> saved;
    QList<QUrl> chosen;
    OpenPanelRequest asked;
};

/// With an item for each character.
TrovellWorkspace& workspaceWithItems(ViewFixture& fixture, const QString& names)
{
    TrovellWorkspace& workspace = fixture.addWorkspace(u"Work"_s);
    for (const QChar name : names)
        fixture.addItem(workspace, WorkspaceItemType::file, name);
    return workspace;
}

QList<QUuid> idsOf(const TrovellWorkspace& workspace)
{
    QList<QUuid> ids;
    for (const WorkspaceItem* item : workspace.sortedItems())
        ids.append(item->id());
    return ids;
}

} // namespace

class WorkspaceEditorViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<ViewFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void makesAWorkspaceWithAName()
    {
        m_fixture->addWorkspace(u"First"_s);
        const OpenEditor editor(*m_fixture);
        QTRY_VERIFY(editor.name().hasFocus());
        QTest::keyClicks(&editor.name(), u"  "_s);
        QVERIFY(!find(*editor.view, u"Save"_s)->isEnabled());
        QTest::keyClick(&editor.name(), Qt::Key_Return);
        QCOMPARE(m_fixture->context().workspaces().size(), 1);

        QTest::keyClicks(&editor.name(), u"Evening "_s);
        click(*editor.view, u"hammer"_s);
        click(*editor.view, u"green"_s);
        editor.view->findChild<Picker*>()->setCurrentIndex(2);
        QTest::keyClick(&editor.name(), Qt::Key_Return);
        QVERIFY(editor.saved);
        QCOMPARE(editor.saved->name(), u"Evening"_s);
        QCOMPARE(choicesOf(*editor.saved), (WorkspaceChoices{u"hammer"_s, u"green"_s, 2}));
        QTRY_VERIFY(!editor.view);
    }

    void savesAllOrNothing()
    {
        TrovellWorkspace& workspace = workspaceWithItems(*m_fixture, u"ab"_s);
        m_fixture->addPlacement(workspace, u"editor"_s);
        const StoreContents before = m_fixture->contents();
        const auto edit = [](const OpenEditor& editor) {
            editor.name().setText(u"Other"_s);
            QTest::mouseClick(find<QCheckBox>(*editor.view, u"b"_s), Qt::LeftButton);
            click(*editor.view, u"Remove a"_s);
            click(*editor.view, u"Clear"_s);
        };
        const OpenEditor cancelled(*m_fixture, &workspace);
        edit(cancelled);
        QTest::keyClick(&cancelled.name(), Qt::Key_Escape);
        QTRY_VERIFY(!cancelled.view);
        QVERIFY(!m_fixture->context().hasChanges());

        const OpenEditor editor(*m_fixture, &workspace);
        edit(editor);
        m_fixture->refuseSaving();
        QCOMPARE(editor.save(),
                 QStringList({notSaved, description(StoreError::diskFull).productText()}));
        QVERIFY(!editor.saved);
        QCOMPARE(m_fixture->contents(), before);

        m_fixture->allowSaving();
        QCOMPARE(editor.save(), QStringList());
        QCOMPARE(editor.saved.data(), &workspace);
        QCOMPARE(workspace.name(), u"Other"_s);
        QCOMPARE(workspace.itemCount(), 1);
        QCOMPARE(workspace.enabledItemCount(), 0);
        QCOMPARE(workspace.placementCount(), 0);
    }

    void outlivesItsWorkspace()
    {
        QPointer workspace = &workspaceWithItems(*m_fixture, u"a"_s);
        const OpenEditor editor(*m_fixture, workspace);
        m_fixture->context().remove(*workspace);
        QVERIFY(editor.save().value(1).contains(u"deleted"));
        m_fixture->save();
        QTRY_VERIFY(!workspace);
        QVERIFY(editor.save().value(1).contains(u"deleted"));
        QVERIFY(m_fixture->context().workspaces().isEmpty());
        QCOMPARE(editor.names(), u"a"_s);
    }

    void clearsAndReplacesTheLayout()
    {
        TrovellWorkspace& workspace = workspaceWithItems(*m_fixture, {});
        m_fixture->addPlacement(workspace, u"old"_s);
        m_fixture->windows->addWindow(u"new"_s, {.title = u"First"_s});
        m_fixture->windows->addWindow(u"new"_s, {.title = u"Second"_s});
        const OpenEditor editor(*m_fixture, &workspace);
        QVERIFY(editor.shows(u"1 saved windows."_s));
        click(*editor.view, u"Clear"_s);
        QVERIFY(editor.shows(u"The saved layout will be removed."_s));
        QVERIFY(!find(*editor.view, u"Clear"_s));

        click(*editor.view, u"Capture Current Layout"_s);
        QTRY_VERIFY(sheetOver<Sheet>(*editor.view));
        const auto* review = sheetOver<Sheet>(*editor.view);
        click(*review, u"new"_s);
        QVERIFY(!find(*review, u"Use Selected Windows"_s)->isEnabled());
        click(*review, u"new"_s);
        click(*review, u"Second"_s);
        click(*review, u"Use Selected Windows"_s);
        QVERIFY(!sheetOver<Sheet>(*editor.view));
        QVERIFY(editor.shows(u"1 newly captured windows."_s));
        QCOMPARE(workspace.sortedPlacements().first()->bundleIdentifier(), u"old"_s);

        QCOMPARE(editor.save(), QStringList());
        QCOMPARE(workspace.placementCount(), 1);
        QCOMPARE(workspace.sortedPlacements().first()->windowTitleHint(), u"First"_s);
        QVERIFY(workspace.sortedPlacements().first()->isEnabled());
    }

    void switchesWhatSavedWindowsBringBack()
    {
        TrovellWorkspace& workspace = workspaceWithItems(*m_fixture, {});
        for (const char* states : {"fullScreen", "maximizedVertically above"})
            workspace.appendPlacement(std::make_unique<WindowPlacement>(WindowPlacementValues{
                .bundleIdentifier = u"editor"_s,
                .windowTitleHint = u"a"_s,
                .virtualDesktopIndex = 1,
                .windowStates = QString::fromLatin1(states),
                .opensMissingWindow = true,
            }));
        m_fixture->addPlacement(workspace, u"silent"_s);
        const OpenEditor editor(*m_fixture, &workspace);
        QVERIFY(editor.shows(u"Desktop 2 • Full screen"_s));
        QVERIFY(editor.shows(u"Desktop 2 • Maximized vertically • Above others"_s));
        QVERIFY(!editor.shows(u"silent window"_s));
        click(*editor.view, u"Restore on its desktop"_s); // the first of two
        click(*editor.view, u"Restore maximized"_s);
        click(*editor.view, u"Open missing windows"_s);
        QCOMPARE(editor.save(), QStringList());
        const auto placements = workspace.placementsInOrder();
        QVERIFY(!placements[0]->restoresDesktop() && placements[0]->restoresState());
        QVERIFY(placements[1]->restoresDesktop() && !placements[1]->restoresState());
        QVERIFY(!placements[0]->opensMissingWindow() && !placements[1]->opensMissingWindow());
    }

    void keepsTheWindowsThatACaptureDoesNotSee()
    {
        TrovellWorkspace& workspace = workspaceWithItems(*m_fixture, {});
        for (const QString& name : {u"closed"_s, u"minimized"_s})
            m_fixture->addPlacement(workspace, name);
        m_fixture->windows->addWindow(u"new"_s, {.title = u"First"_s});
        m_fixture->windows->addWindow(u"minimized"_s, {.isMinimized = true});
        const OpenEditor editor(*m_fixture, &workspace);
        click(*editor.view, u"Capture Current Layout"_s);
        QTRY_VERIFY(sheetOver<Sheet>(*editor.view));
        const auto* review = sheetOver<Sheet>(*editor.view);
        QVERIFY(find<QLabel>(*review, u"1 windows selected • 2 previous positions kept"_s));
        click(*review, u"Keep saved position for closed"_s);
        QVERIFY(find<QLabel>(*review, u"1 windows selected • 1 previous positions kept"_s));
        click(*review, u"Use Selected Windows"_s);
        QCOMPARE(editor.save(), QStringList());
        QStringList applications;
        for (const WindowPlacement* placement : workspace.placementsInOrder())
            applications.append(placement->bundleIdentifier());
        QCOMPARE(applications, (QStringList{u"minimized"_s, u"new"_s}));
    }

    void asksForPermissionBeforeCapturing()
    {
        m_fixture->setTrusted(false);
        const OpenEditor editor(*m_fixture);
        QVERIFY(find(*editor.view, u"Open Settings"_s));
        click(*editor.view, u"Capture Current Layout"_s);
        QVERIFY(answeredAlert(*editor.view).value(1).contains(u"remove the old entry"));

        // Granted meanwhile, and noticed by the button; nothing is open.
        m_fixture->windows->trusted = true;
        click(*editor.view, u"Capture Current Layout"_s);
        QVERIFY(!find(*editor.view, u"Open Settings"_s));
        QTRY_VERIFY(sheetOver<Alert>(*editor.view));
        QCOMPARE(answeredAlert(*editor.view).value(1),
                 u"No ordinary application windows were available to capture."_s);
    }

    void canBeClosedWhileCapturing()
    {
        m_fixture->windows->addWindow(u"new"_s, {});
        const OpenEditor editor(*m_fixture);
        click(*editor.view, u"Capture Current Layout"_s);
        click(*editor.view, u"Cancel"_s);
        QTRY_VERIFY(!editor.view);
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QVERIFY(!sheetOver<Sheet>(m_fixture->window()));
    }

    void addsWebLinks()
    {
        const OpenEditor editor(*m_fixture);
        const auto open = [&editor] {
            editor.add(u"Web Link…"_s);
            return sheetOver<AddWebLinkView>(*editor.view);
        };
        auto* sheet = open();
        QTest::keyClicks(sheet->findChild<QLineEdit*>(), u"ftp://example.org"_s);
        click(*sheet, u"Add"_s);
        QVERIFY(!answeredAlert(*sheet).isEmpty());
        sheet->findChild<QLineEdit*>()->setText(u"example.org"_s);
        click(*sheet, u"Cancel"_s);

        // What was typed is still there, and used up once it was added.
        QTest::keyClick(open()->findChild<QLineEdit*>(), Qt::Key_Return);
        QVERIFY(!sheetOver<AddWebLinkView>(*editor.view));
        QCOMPARE(editor.list().items().size(), 1);
        QCOMPARE(editor.list().items().first().urlString, u"https://example.org"_s);
        QVERIFY(open()->findChild<QLineEdit*>()->text().isEmpty());
    }

    void addsWhatWasChosenEvenWhenSavedAtOnce()
    {
        OpenEditor editor(*m_fixture);
        editor.name().setText(u"Work"_s);
        const QUrl application(u"file:///usr/share/applications/org.example.Text.desktop"_s);
        editor.chosen = {application, application};
        editor.add(u"Application…"_s);
        QVERIFY(editor.asked.allowsMultiple);
        click(*editor.view, u"Save"_s);
        QTRY_VERIFY(editor.saved);
        QCOMPARE(editor.saved->itemCount(), 2);
        const WorkspaceItem* item = editor.saved->sortedItems().first();
        QCOMPARE(item->displayName(), u"org.example.Text"_s);
        QCOMPARE(item->bundleIdentifier(), u"org.example.Text"_s);
        QCOMPARE(item->applicationPath(), application.path());
        QVERIFY(item->bookmarkData());
        QVERIFY(item->id() != editor.saved->sortedItems().last()->id());
    }

    void saysHowItemsAreOpened()
    {
        TrovellWorkspace& workspace = workspaceWithItems(*m_fixture, u"a"_s);
        m_fixture->addItem(workspace, WorkspaceItemType::application, u"b"_s);
        OpenEditor editor(*m_fixture, &workspace);
        click(*editor.view, u"Options of b"_s);
        const QPointer<Sheet> program = sheetOver<Sheet>(*editor.view);
        find<QLineEdit>(*program, u"Arguments"_s)->setText(u" --new \"two words\" "_s);
        auto* folder = find<QLineEdit>(*program, u"Working Folder"_s);
        folder->setText(u"somewhere"_s);
        click(*program, u"Done"_s);
        QVERIFY(answeredAlert(*program).value(1).contains(u"whole path"));
        editor.chosen = {QUrl(u"file:///srv/data"_s)};
        click(*program, u"Choose…"_s);
        QCOMPARE(folder->text(), u"/srv/data"_s);
        folder->setText(u"~/work"_s);
        click(*program, u"Done"_s);

        click(*editor.view, u"Options of a"_s);
        const auto* file = sheetOver<Sheet>(*editor.view);
        QVERIFY(find<QLabel>(*file, u"Opens with the default application"_s));
        editor.chosen = {QUrl(u"file:///usr/share/applications/org.example.Text.desktop"_s)};
        click(*file, u"Choose…"_s);
        QCOMPARE(editor.asked.type, WorkspaceItemType::application);
        QTRY_VERIFY(find<QLabel>(*file, u"Opens with org.example.Text"_s));
        click(*file, u"Done"_s);

        QCOMPARE(editor.save(), QStringList());
        const auto items = workspace.sortedItems();
        QCOMPARE(items[0]->values().openWith, u"org.example.Text"_s);
        QCOMPARE(items[1]->values().arguments, u"--new \"two words\""_s);
        QCOMPARE(items[1]->values().workingFolder, QDir::homePath() + u"/work"_s);
    }

    void locatesAgain()
    {
        TrovellWorkspace& workspace = workspaceWithItems(*m_fixture, u"abc"_s);
        workspace.sortedItems()[0]->setUrlString(
            QUrl::fromLocalFile(m_fixture->folder.path()).toString());
        workspace.sortedItems()[1]->setIsEnabled(false);
        const QList<QUuid> ids = idsOf(workspace);
        OpenEditor editor(*m_fixture, &workspace);
        const auto isMissing = [&editor](int row) {
            return find(*editor.rows()[row], u"Locate Again"_s) != nullptr;
        };
        QTRY_VERIFY(!isMissing(0) && isMissing(1) && isMissing(2));

        QFile found(m_fixture->folder.filePath(u"found again.txt"_s));
        QVERIFY(found.open(QIODevice::WriteOnly));
        editor.chosen = {QUrl::fromLocalFile(found.fileName())};
        click(*editor.rows()[1], u"Locate Again"_s);
        QCOMPARE(editor.asked.type, WorkspaceItemType::file);
        QVERIFY(!editor.asked.allowsMultiple);
        QTRY_VERIFY(!isMissing(1) && isMissing(2));
        QCOMPARE(editor.save(), QStringList());
        QCOMPARE(idsOf(workspace), ids);
        const WorkspaceItem* item = workspace.sortedItems()[1];
        QCOMPARE(item->displayName(), u"found again.txt"_s);
        QVERIFY(item->urlString().endsWith(u"found%20again.txt"));
        QVERIFY(!item->isEnabled());
    }

    void reorders_data()
    {
        // By dragging onto the target, or with the keyboard where it is a neighbour.
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("target");
        QTest::addColumn<bool>("byKeys");
        QTest::addColumn<QString>("order");
        QTest::newRow("drag down") << 0 << 2 << false << u"bacd"_s;
        QTest::newRow("drag up") << 3 << 0 << false << u"dabc"_s;
        QTest::newRow("key up") << 2 << 1 << true << u"acbd"_s;
        QTest::newRow("key down") << 2 << 3 << true << u"abdc"_s;
        QTest::newRow("key down at the end") << 3 << 4 << true << u"abcd"_s;
    }

    void reorders()
    {
        QFETCH(int, row);
        QFETCH(int, target);
        QFETCH(bool, byKeys);
        QFETCH(QString, order);
        const OpenEditor editor(*m_fixture, &workspaceWithItems(*m_fixture, u"abcd"_s));
        const QPointer<QWidget> moved = editor.list().findChildren<QCheckBox*>()[row];
        QVERIFY(QTest::qWaitForWindowActive(editor.view));
        moved->setFocus();
        if (byKeys)
            QTest::keyClick(moved.data(), target < row ? Qt::Key_Up : Qt::Key_Down,
                            Qt::AltModifier);
        else
            editor.drag(row, target);
        QCOMPARE(editor.names(), order);
        QCOMPARE(editor.view->focusWidget(), moved.data());

        // On the screen, for assistive tools and for the Tab key the rows stand in that order.
        QMap<int, QString> byTop;
        for (const EditorItemRow* shown : editor.rows())
            byTop.insert(shown->y(), shown->findChild<QCheckBox*>()->accessibleName());
        QCOMPARE(QStringList(byTop.values()).join(QString()), order);
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&editor.list());
        QCOMPARE(list->role(), QAccessible::List);
        QString read;
        for (int index = 0; index < list->childCount(); ++index)
            read += list->child(index)->text(QAccessible::Name);
        QCOMPARE(read, order);
        QString tabbed;
        for (QWidget* next = find(*editor.view, u"Add Item"_s)->nextInFocusChain();
             next && tabbed.size() < 4; next = next->nextInFocusChain()) {
            if (qobject_cast<QCheckBox*>(next))
                tabbed += next->accessibleName();
        }
        QCOMPARE(tabbed, order);
    }

    void leavesRoomForOtherLanguages()
    {
        m_fixture->setTrusted(false);
        TrovellWorkspace& workspace = workspaceWithItems(*m_fixture, u"ab"_s);
        m_fixture->addPlacement(workspace, u"editor"_s);
        const OpenEditor editor(*m_fixture, &workspace);
        const ViewEnvironment& environment = m_fixture->environment();
        auto& link = *new AddWebLinkView(environment, u"example.org"_s, editor.view);
        link.open();
        QStringList data{u"a"_s, u"b"_s, u"Work"_s, u"example.org"_s, u"example.com"_s};
        for (const EditableWorkspaceItem& item : editor.list().items())
            data.append(item.urlString);
        data += symbols() + accents();
        QCOMPARE(languageProblems(*editor.view, environment.words, data), QString());
        QCOMPARE(languageProblems(link, environment.words, data), QString());
    }

private:
    std::unique_ptr<ViewFixture> m_fixture;
};

QTEST_MAIN(WorkspaceEditorViewTest)
#include "WorkspaceEditorViewTest.moc"
