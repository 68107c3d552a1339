#include "views/workspace/WorkspaceEditorView.h"

#include "model/StoreContext.h"
#include "views/style/Alert.h"
#include "views/style/Picker.h"
#include "views/style/PopupMenu.h"
#include "views/style/PushButton.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"
#include "views/workspace/AddWebLinkView.h"
#include "views/workspace/EditorItemList.h"
#include "views/workspace/EditorItemRow.h"
#include "views/workspace/EditorItemsSection.h"
#include "views/workspace/Reorder.h"
#include "words/WidgetTexts.h"

#include <QAccessible>
#include <QMimeData>

using namespace trovell;
using namespace trovell::test;

namespace {

/// What the alert over `window` says; it is closed. Empty without one.
QString answeredAlert(QWidget& window)
{
    auto* alert = sheetOver<Alert>(window);
    if (!alert)
        return {};
    const QString message = alert->accessibleDescription();
    click(*alert, u"OK"_qs);
    return message;
}

void send(QWidget& widget, QEvent::Type type, const QPoint& position)
{
    QMouseEvent event(type, position, widget.mapToGlobal(position), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

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
    }

    QLineEdit& name() const { return *find<QLineEdit>(*view, u"Workspace name"_qs); }
    EditorItemList& list() const { return *view->findChild<EditorItemList*>(); }

    QStringList names() const
    {
        QStringList names;
        for (const EditableWorkspaceItem& item : list().items())
            names.append(item.displayName);
        return names;
    }

    /// The names as the rows stand on the screen.
    QStringList shownNames() const
    {
        QMap<int, QString> byTop;
        for (const auto* row : list().findChildren<EditorItemRow*>())
            byTop.insert(row->y(), row->findChild<QCheckBox*>()->accessibleName());
        return byTop.values();
    }

    void add(const QString& kind) const
    {
        const auto actions = view->findChild<PopupMenu*>()->actions();
        const auto action = std::find_if(actions.begin(), actions.end(),
                                         [&](QAction* each) { return each->text() == kind; });
        QVERIFY(action != actions.end());
        (*action)->trigger();
    }

    QPoint middleOf(qsizetype row) const
    {
        const int height = list().height() / int(list().items().size());
        return {list().width() / 2, int(row) * height + height / 2};
    }

    QPointer<WorkspaceEditorView> view;
    QPointer<TrovellWorkspace> saved;
    QList<QUrl> chosen;
    OpenPanelRequest asked;
};

TrovellWorkspace& workspaceWithItems(ViewFixture& fixture, const QStringList& names)
{
    TrovellWorkspace& workspace = fixture.addWorkspace(u"Work"_qs);
    for (const QString& name : names)
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
    void needsAName();
    void makesAWorkspace();
    void keepsItemsTheSameAndNumbersThem();
    void cancelsWithoutATrace();
    void refusesATakenShortcut();
    void keepsEverythingWhenSavingFails();
    void outlivesItsWorkspace();
    void clearsAndReplacesTheLayout();
    void asksForPermissionBeforeCapturing();
    void canBeClosedWhileCapturing();
    void addsWebLinks();
    void addsWhatWasChosenEvenWhenSavedAtOnce();
    void locatesAgain();
    void reorders_data();
    void reorders();
    void readsItsRowsInTheirOrder();
    void givesUpADrag();
    void takesIdentifiersDropped();
    void keepsTheFocusWhenARowGoes();
    void leavesRoomForOtherLanguages_data();
    void leavesRoomForOtherLanguages();
};

void WorkspaceEditorViewTest::needsAName()
{
    ViewFixture fixture;
    const OpenEditor editor(fixture);
    auto* save = find<QAbstractButton>(*editor.view, u"Save"_qs);
    QCOMPARE(QApplication::focusWidget() ? QApplication::focusWidget() : &editor.name(),
             &editor.name());
    for (const auto& [name, canSave] :
         {std::pair{u""_qs, false}, {u" \t "_qs, false}, {u" Work "_qs, true}, {u" "_qs, false}}) {
        editor.name().setText(name);
        QCOMPARE(save->isEnabled(), canSave);
    }
    QTest::keyClick(&editor.name(), Qt::Key_Return);
    QVERIFY(fixture.context().workspaces().isEmpty());
}

void WorkspaceEditorViewTest::makesAWorkspace()
{
    ViewFixture fixture;
    fixture.addWorkspace(u"First"_qs);
    const OpenEditor editor(fixture);
    QTest::keyClicks(&editor.name(), u"  Evening "_qs);
    click(*editor.view, u"hammer"_qs);
    click(*editor.view, u"green"_qs);
    editor.view->findChild<Picker*>()->setCurrentIndex(2);
    QTest::keyClick(&editor.name(), Qt::Key_Return);

    QCOMPARE(fixture.context().workspaces().size(), 2);
    QVERIFY(editor.saved);
    QCOMPARE(fixture.context().workspaces().last(), editor.saved.data());
    QCOMPARE(editor.saved->name(), u"Evening"_qs);
    QCOMPARE(editor.saved->symbolName(), u"hammer"_qs);
    QCOMPARE(editor.saved->accentIdentifier(), u"green"_qs);
    QCOMPARE(editor.saved->shortcut(), shortcuts()[2]);
    QCOMPARE(editor.saved->sortOrder(), 1);
    QVERIFY(!fixture.context().hasChanges());
    QTRY_VERIFY(!editor.view);
}

void WorkspaceEditorViewTest::keepsItemsTheSameAndNumbersThem()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs, u"c"_qs});
    fixture.addPlacement(workspace, u"editor"_qs);
    workspace.sortedItems()[0]->setSortOrder(-4);
    workspace.sortedItems()[2]->setSortOrder(70);
    const QDateTime past = QDateTime::currentDateTimeUtc().addDays(-1);
    for (WorkspaceItem* item : workspace.sortedItems())
        item->setCreatedAt(past);
    workspace.setUpdatedAt(past);
    QVERIFY(fixture.context().save());
    const QList<QUuid> ids = idsOf(workspace);

    const OpenEditor editor(fixture, &workspace);
    QTest::mouseClick(find<QCheckBox>(*editor.view, u"b"_qs), Qt::LeftButton);
    click(*editor.view, u"Save"_qs);

    QCOMPARE(editor.saved.data(), &workspace);
    QCOMPARE(idsOf(workspace), ids);
    QVERIFY(workspace.updatedAt() > past);
    QCOMPARE(workspace.placementCount(), 1);
    const auto items = workspace.sortedItems();
    for (qsizetype position = 0; position < items.size(); ++position) {
        QCOMPARE(items[position]->sortOrder(), position);
        QVERIFY(items[position]->createdAt() > past);
        QCOMPARE(items[position]->isEnabled(), position != 1);
    }
}

void WorkspaceEditorViewTest::cancelsWithoutATrace()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs});
    fixture.addPlacement(workspace, u"editor"_qs);
    const OpenEditor editor(fixture, &workspace);
    editor.name().setText(u"Other"_qs);
    click(*editor.view, u"Remove a"_qs);
    click(*editor.view, u"Clear"_qs);
    QTest::keyClick(&editor.name(), Qt::Key_Escape);
    QTRY_VERIFY(!editor.view);
    QVERIFY(!fixture.context().hasChanges());
    QVERIFY(!editor.saved);
    QCOMPARE(workspace.itemCount() + workspace.placementCount(), 2);
}

void WorkspaceEditorViewTest::refusesATakenShortcut()
{
    ViewFixture fixture;
    TrovellWorkspace& holder = fixture.addWorkspace(u"Holder"_qs);
    holder.setShortcut(shortcuts()[1]);
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs});
    const OpenEditor editor(fixture, &workspace);
    editor.name().setText(u"Other"_qs);
    click(*editor.view, u"Remove a"_qs);
    editor.view->findChild<Picker*>()->setCurrentIndex(1);
    click(*editor.view, u"Save"_qs);
    QCOMPARE(answeredAlert(*editor.view),
             u"That shortcut is already assigned to another workspace."_qs);
    QCOMPARE(workspace.name(), u"Work"_qs);
    QCOMPARE(workspace.itemCount(), 1);
    QCOMPARE(editor.name().text(), u"Other"_qs);

    // Its own shortcut is no conflict.
    holder.setShortcut({});
    workspace.setShortcut(shortcuts()[1]);
    click(*editor.view, u"Save"_qs);
    QVERIFY(editor.saved);
    QCOMPARE(workspace.shortcut(), shortcuts()[1]);
}

void WorkspaceEditorViewTest::keepsEverythingWhenSavingFails()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs});
    fixture.addPlacement(workspace, u"editor"_qs);
    const QList<QUuid> ids = idsOf(workspace);
    const OpenEditor editor(fixture, &workspace);
    editor.name().setText(u"Other"_qs);
    click(*editor.view, u"Remove a"_qs);
    click(*editor.view, u"Clear"_qs);

    fixture.refuseSaving();
    click(*editor.view, u"Save"_qs);
    QVERIFY(!answeredAlert(*editor.view).isEmpty());
    QVERIFY(!editor.saved);
    QVERIFY(!fixture.context().hasChanges());
    QCOMPARE(workspace.name(), u"Work"_qs);
    QCOMPARE(idsOf(workspace), ids);
    QCOMPARE(workspace.placementCount(), 1);

    fixture.allowSaving();
    click(*editor.view, u"Save"_qs);
    QCOMPARE(editor.saved.data(), &workspace);
    QCOMPARE(workspace.name(), u"Other"_qs);
    QCOMPARE(idsOf(workspace), ids.mid(1));
    QCOMPARE(workspace.placementCount(), 0);
}

void WorkspaceEditorViewTest::outlivesItsWorkspace()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs});
    const QPointer<TrovellWorkspace> record(&workspace);
    const OpenEditor editor(fixture, &workspace);
    fixture.context().remove(workspace);
    const auto refuses = [&] {
        click(*editor.view, u"Save"_qs);
        return answeredAlert(*editor.view).contains(u"deleted") &&
               fixture.context().workspaces().isEmpty() && editor.names() == QStringList(u"a"_qs);
    };
    QVERIFY(refuses());
    QVERIFY(fixture.context().save());
    QTRY_VERIFY(!record);
    QVERIFY(refuses());
}

void WorkspaceEditorViewTest::clearsAndReplacesTheLayout()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {});
    fixture.addPlacement(workspace, u"old"_qs);
    fixture.windows->addWindow(u"new"_qs, {.title = u"First"_qs});
    fixture.windows->addWindow(u"new"_qs, {.title = u"Second"_qs});
    const OpenEditor editor(fixture, &workspace);
    const auto shows = [&](const QString& text) { return find<QLabel>(*editor.view, text); };
    QVERIFY(shows(u"1 saved windows."_qs));
    click(*editor.view, u"Clear"_qs);
    QVERIFY(shows(u"The saved layout will be removed."_qs));
    QVERIFY(!find<QAbstractButton>(*editor.view, u"Clear"_qs));

    click(*editor.view, u"Capture Current Layout"_qs);
    QTRY_VERIFY(sheetOver<Sheet>(*editor.view));
    click(*sheetOver<Sheet>(*editor.view), u"Use Selected Windows"_qs);
    QVERIFY(!sheetOver<Sheet>(*editor.view));
    QVERIFY(shows(u"2 newly captured windows."_qs));
    QCOMPARE(workspace.sortedPlacements().first()->bundleIdentifier(), u"old"_qs);

    click(*editor.view, u"Save"_qs);
    QCOMPARE(workspace.placementCount(), 2);
    QCOMPARE(workspace.sortedPlacements().first()->windowTitleHint(), u"First"_qs);
    QVERIFY(workspace.sortedPlacements().last()->isEnabled());
}

void WorkspaceEditorViewTest::asksForPermissionBeforeCapturing()
{
    ViewFixture fixture;
    fixture.windows->trusted = false;
    fixture.dependencies().accessibility().refresh();
    const OpenEditor editor(fixture);
    QVERIFY(find<QAbstractButton>(*editor.view, u"Open Settings"_qs));
    click(*editor.view, u"Capture Current Layout"_qs);
    QVERIFY(answeredAlert(*editor.view).contains(u"remove the old entry"));

    // Granted meanwhile, and noticed by the button; nothing is open.
    fixture.windows->trusted = true;
    click(*editor.view, u"Capture Current Layout"_qs);
    QVERIFY(!find<QAbstractButton>(*editor.view, u"Open Settings"_qs));
    QTRY_VERIFY(sheetOver<Alert>(*editor.view));
    QCOMPARE(answeredAlert(*editor.view),
             u"No ordinary application windows were available to capture."_qs);
}

void WorkspaceEditorViewTest::canBeClosedWhileCapturing()
{
    ViewFixture fixture;
    fixture.windows->addWindow(u"new"_qs, {});
    fixture.windows->onRead = [](const auto&) { QThread::msleep(50); };
    const OpenEditor editor(fixture);
    click(*editor.view, u"Capture Current Layout"_qs);
    click(*editor.view, u"Cancel"_qs);
    QTRY_VERIFY(!editor.view);
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    QVERIFY(!sheetOver<Sheet>(fixture.window()));
}

void WorkspaceEditorViewTest::addsWebLinks()
{
    ViewFixture fixture;
    const OpenEditor editor(fixture);
    editor.add(u"Web Link…"_qs);
    auto* sheet = sheetOver<AddWebLinkView>(*editor.view);
    QVERIFY(sheet);
    auto* field = sheet->findChild<QLineEdit*>();
    click(*sheet, u"Add"_qs);
    QVERIFY(!answeredAlert(*sheet).isEmpty());
    QTest::keyClicks(field, u"ftp://example.org"_qs);
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(!answeredAlert(*sheet).isEmpty());
    QVERIFY(sheet->isVisible());
    field->setText(u"example.org"_qs);
    click(*sheet, u"Cancel"_qs);

    // What was typed is still there, and used up once it was added.
    editor.add(u"Web Link…"_qs);
    QTest::keyClick(sheetOver<AddWebLinkView>(*editor.view)->findChild<QLineEdit*>(),
                    Qt::Key_Return);
    QVERIFY(!sheetOver<AddWebLinkView>(*editor.view));
    QCOMPARE(editor.names(), QStringList(u"example.org"_qs));
    QCOMPARE(editor.list().items().first().urlString, u"https://example.org"_qs);
    editor.add(u"Web Link…"_qs);
    QVERIFY(sheetOver<AddWebLinkView>(*editor.view)->findChild<QLineEdit*>()->text().isEmpty());
}

void WorkspaceEditorViewTest::addsWhatWasChosenEvenWhenSavedAtOnce()
{
    ViewFixture fixture;
    OpenEditor editor(fixture);
    editor.name().setText(u"Work"_qs);
    editor.chosen = {QUrl(u"file:///usr/share/applications/org.example.Text.desktop"_qs),
                     QUrl(u"file:///usr/share/applications/org.example.Text.desktop"_qs)};
    editor.add(u"Application…"_qs);
    QVERIFY(editor.asked.allowsMultiple);
    click(*editor.view, u"Save"_qs);
    QTRY_VERIFY(editor.saved);
    QCOMPARE(editor.saved->itemCount(), 2);
    const WorkspaceItem* item = editor.saved->sortedItems().first();
    QCOMPARE(item->displayName(), u"org.example.Text"_qs);
    QCOMPARE(item->bundleIdentifier(), u"org.example.Text"_qs);
    QCOMPARE(item->applicationPath(), editor.chosen.first().path());
    QVERIFY(item->bookmarkData());
    QVERIFY(item->id() != editor.saved->sortedItems().last()->id());
}

void WorkspaceEditorViewTest::locatesAgain()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"gone"_qs, u"c"_qs});
    workspace.sortedItems()[0]->setUrlString(QUrl::fromLocalFile(fixture.folder.path()).toString());
    workspace.sortedItems()[1]->setIsEnabled(false);
    const QList<QUuid> ids = idsOf(workspace);
    OpenEditor editor(fixture, &workspace);
    const auto links = [&] {
        QStringList named;
        for (const auto* row : editor.list().findChildren<EditorItemRow*>()) {
            if (find<QAbstractButton>(const_cast<EditorItemRow&>(*row), u"Locate Again"_qs))
                named.append(row->findChild<QCheckBox*>()->accessibleName());
        }
        return named;
    };
    QTRY_COMPARE(links(), QStringList({u"gone"_qs, u"c"_qs}));

    QFile found(fixture.folder.filePath(u"found again.txt"_qs));
    QVERIFY(found.open(QIODevice::WriteOnly));
    editor.chosen = {QUrl::fromLocalFile(found.fileName())};
    click(*editor.list().findChildren<EditorItemRow*>()[1], u"Locate Again"_qs);
    QCOMPARE(editor.asked.type, WorkspaceItemType::file);
    QVERIFY(!editor.asked.allowsMultiple);
    QTRY_COMPARE(links(), QStringList(u"c"_qs));
    click(*editor.view, u"Save"_qs);
    QCOMPARE(idsOf(workspace), ids);
    const WorkspaceItem* item = workspace.sortedItems()[1];
    QCOMPARE(item->displayName(), u"found again.txt"_qs);
    QVERIFY(item->urlString().endsWith(u"found%20again.txt"));
    QVERIFY(!item->isEnabled());
}

void WorkspaceEditorViewTest::reorders_data()
{
    QTest::addColumn<qsizetype>("row");
    // By dragging onto that row, or with the keyboard where it is a neighbour.
    QTest::addColumn<qsizetype>("target");
    QTest::addColumn<bool>("byKeys");
    QTest::addColumn<QString>("order");
    QTest::newRow("drag down") << qsizetype(0) << qsizetype(2) << false << u"bacd"_qs;
    QTest::newRow("drag up") << qsizetype(3) << qsizetype(0) << false << u"dabc"_qs;
    QTest::newRow("drag to itself") << qsizetype(1) << qsizetype(1) << false << u"abcd"_qs;
    QTest::newRow("key up") << qsizetype(2) << qsizetype(1) << true << u"acbd"_qs;
    QTest::newRow("key down") << qsizetype(2) << qsizetype(3) << true << u"abdc"_qs;
    QTest::newRow("key up at the top") << qsizetype(0) << qsizetype(-1) << true << u"abcd"_qs;
    QTest::newRow("key down at the end") << qsizetype(3) << qsizetype(4) << true << u"abcd"_qs;
}

void WorkspaceEditorViewTest::reorders()
{
    QFETCH(qsizetype, row);
    QFETCH(qsizetype, target);
    QFETCH(bool, byKeys);
    QFETCH(QString, order);
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs});
    const OpenEditor editor(fixture, &workspace);
    EditorItemList& list = editor.list();
    const QPointer<QWidget> moved = list.findChildren<QCheckBox*>()[row];
    editor.view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(editor.view));
    moved->setFocus();
    if (byKeys) {
        QTest::keyClick(moved.data(), target < row ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier);
    } else {
        send(list, QEvent::MouseButtonPress, editor.middleOf(row));
        send(list, QEvent::MouseMove, editor.middleOf(row) + QPoint(0, 30));
        send(list, QEvent::MouseMove, editor.middleOf(target));
        send(list, QEvent::MouseButtonRelease, editor.middleOf(target));
    }
    QCOMPARE(editor.names().join(QString()), order);
    QCOMPARE(editor.shownNames(), editor.names());
    QCOMPARE(editor.view->focusWidget(), moved.data());

    // The Tab key goes through the rows as they stand.
    QString tabbed;
    for (QWidget* next = find<QAbstractButton>(*editor.view, u"Add Item"_qs)->nextInFocusChain();
         next && tabbed.size() < 4; next = next->nextInFocusChain()) {
        if (qobject_cast<QCheckBox*>(next))
            tabbed += next->accessibleName();
    }
    QCOMPARE(tabbed, order);
}

void WorkspaceEditorViewTest::readsItsRowsInTheirOrder()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs, u"c"_qs});
    const OpenEditor editor(fixture, &workspace);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&editor.list());
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->text(QAccessible::Name), u"Items"_qs);
    send(editor.list(), QEvent::MouseButtonPress, editor.middleOf(0));
    send(editor.list(), QEvent::MouseMove, editor.middleOf(2));
    send(editor.list(), QEvent::MouseButtonRelease, editor.middleOf(2));
    QString read;
    for (int index = 0; index < list->childCount(); ++index) {
        QCOMPARE(list->child(index)->role(), QAccessible::ListItem);
        read += list->child(index)->text(QAccessible::Name);
    }
    QCOMPARE(read, u"bac"_qs);
}

void WorkspaceEditorViewTest::givesUpADrag()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs, u"c"_qs});
    const OpenEditor editor(fixture, &workspace);
    EditorItemList& list = editor.list();
    send(list, QEvent::MouseButtonPress, editor.middleOf(2));
    send(list, QEvent::MouseMove, editor.middleOf(0));
    QTest::keyClick(&list, Qt::Key_Escape);
    send(list, QEvent::MouseMove, editor.middleOf(0));
    send(list, QEvent::MouseButtonRelease, editor.middleOf(0));
    QCOMPARE(editor.names().join(QString()), u"abc"_qs);
    QVERIFY(editor.view->isVisible());
    QVERIFY(!QWidget::keyboardGrabber());
}

void WorkspaceEditorViewTest::takesIdentifiersDropped()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs, u"c"_qs});
    const OpenEditor editor(fixture, &workspace);
    const auto drop = [&](const QString& text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(editor.middleOf(0), Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(&editor.list(), &enter);
        QDropEvent event(editor.middleOf(0), Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&editor.list(), &event);
        return event.isAccepted();
    };
    QVERIFY(!drop({}));
    QVERIFY(!drop(u"no identifier"_qs));
    QVERIFY(drop(dragPayload(QUuid::createUuid())));
    QCOMPARE(editor.names().join(QString()), u"abc"_qs);
    QVERIFY(drop(dragPayload(editor.list().items()[2].id)));
    QCOMPARE(editor.names().join(QString()), u"cab"_qs);
}

void WorkspaceEditorViewTest::keepsTheFocusWhenARowGoes()
{
    ViewFixture fixture;
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs});
    const OpenEditor editor(fixture, &workspace);
    editor.view->activateWindow();
    for (const auto& [removed, next] :
         {std::pair{u"Remove a"_qs, u"Remove b"_qs}, {u"Remove b"_qs, u"Add Item"_qs}}) {
        auto* button = find<QAbstractButton>(*editor.view, removed);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        QCOMPARE(editor.view->focusWidget(), find<QAbstractButton>(*editor.view, next));
    }
    QVERIFY(editor.names().isEmpty());
}

void WorkspaceEditorViewTest::leavesRoomForOtherLanguages_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("long texts") << u"en-XA"_qs;
    QTest::newRow("from right to left") << u"ar-XB"_qs;
}

void WorkspaceEditorViewTest::leavesRoomForOtherLanguages()
{
    QFETCH(QString, language);
    ViewFixture fixture;
    const ViewEnvironment& english = fixture.environment();
    Localization words({QStringLiteral(TROVELL_TEST_LANGUAGES)});
    const ViewEnvironment environment{english.visual,       words,
                                      english.dependencies, english.context,
                                      english.workspaces,   english.icons};
    fixture.windows->trusted = false;
    fixture.dependencies().accessibility().refresh();
    TrovellWorkspace& workspace = workspaceWithItems(fixture, {u"a"_qs, u"b"_qs});
    fixture.addPlacement(workspace, u"editor"_qs);
    fixture.window().show();
    WorkspaceEditorView editor(environment, &workspace, &fixture.window());
    editor.setAttribute(Qt::WA_DeleteOnClose, false);
    editor.open();
    auto& link = *new AddWebLinkView(environment, u"example.org"_qs, &editor);
    link.open();
    words.setLanguage(language);
    QCoreApplication::processEvents();
    QStringList data{u"a"_qs, u"b"_qs, u"Work"_qs, u"example.org"_qs, u"example.com"_qs};
    for (const EditableWorkspaceItem& item : editor.findChild<EditorItemList*>()->items())
        data.append(item.urlString);
    data += symbols() + accents();
    QCOMPARE(textsNotLookedUp(editor, data), QStringList());
    QCOMPARE(clippedTexts(editor), QStringList());
    QCOMPARE(clippedTexts(link), QStringList());
    QCOMPARE(editor.layoutDirection(), words.layoutDirection());
    words.setLanguage(u"en"_qs);
}

QTEST_MAIN(WorkspaceEditorViewTest)
#include "WorkspaceEditorViewTest.moc"
