// The main window as people use it, over a real store whose disk can be made to fail.
#include "views/workspace/MainWorkspaceView.h"

#include "views/style/Alert.h"
#include "views/style/ScrollArea.h"
#include "views/style/TextField.h"
#include "views/support/ViewFixture.h"
#include "views/workspace/RenameWorkspaceView.h"
#include "views/workspace/Reorder.h"
#include "views/workspace/WorkspaceCaptureView.h"
#include "views/workspace/WorkspaceDetailView.h"
#include "views/workspace/WorkspaceEditorView.h"
#include "views/workspace/WorkspaceEmptyView.h"
#include "views/workspace/WorkspaceNoticeBanner.h"
#include "views/workspace/WorkspaceSidebarList.h"
#include "words/WidgetTexts.h"

#include <QAccessible>

using namespace trovell;
using namespace trovell::test;

namespace {

using Detail = WorkspaceDetailView;

/// The main window in front of a person.
class Desk : public ViewFixture {
public:
    void open()
    {
        view = new MainWorkspaceView(environment());
        window().setCentralWidget(view);
        window().show();
        window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        list = view->findChild<WorkspaceSidebarList*>();
        detail = view->findChild<Detail*>();
        list->setFocus();
    }

    /// Workspaces of these names, one character each, on the screen.
    void open(const QString& names)
    {
        for (const QChar name : names)
            addWorkspace(name);
        open();
    }

    [[nodiscard]] TrovellWorkspace& workspace(int row) { return *context().workspaces().at(row); }

    [[nodiscard]] QString namesInStore()
    {
        QString names;
        for (const TrovellWorkspace* workspace : context().workspaces())
            names += workspace->name();
        return names;
    }

    [[nodiscard]] QString namesOnScreen() const
    {
        QString names;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            names += list->model()->index(row, 0).data().toString();
        return names;
    }

    [[nodiscard]] QString selectedName() const { return list->currentIndex().data().toString(); }

    [[nodiscard]] QPoint middleOf(int row) const
    {
        return list->rowRect(list->model()->index(row, 0)).center();
    }

    void send(QEvent::Type type, const QPoint& position, Qt::MouseButtons buttons) const
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, position, list->viewport()->mapToGlobal(position), button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(list->viewport(), &event);
    }

    void lift(int row, int target) const
    {
        send(QEvent::MouseButtonPress, middleOf(row), Qt::LeftButton);
        send(QEvent::MouseMove, middleOf(row) + QPoint(0, 30), Qt::LeftButton);
        send(QEvent::MouseMove, middleOf(target), Qt::LeftButton);
    }

    void drag(int row, int target) const
    {
        lift(row, target);
        send(QEvent::MouseButtonRelease, middleOf(target), Qt::NoButton);
    }

    /// Whether the list took the text.
    [[nodiscard]] bool dropText(const QString& text, int target) const
    {
        QMimeData data;
        data.setText(text);
        // Without an accepted entry no drop is delivered.
        QDragEnterEvent entry(middleOf(target), Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(list->viewport(), &entry);
        QDropEvent event(middleOf(target), Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(list->viewport(), &event);
        return entry.isAccepted() && event.isAccepted();
    }

    /// The sheet of that kind in front; null when there is none.
    template <class Kind> [[nodiscard]] static Kind* front()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* sheet = qobject_cast<Kind*>(widget);
            if (sheet && sheet->isVisible())
                return sheet;
        }
        return nullptr;
    }

    static void press(const QString& text, QWidget* in)
    {
        QVERIFY(in);
        for (auto* button : in->findChildren<QAbstractButton*>()) {
            if (button->text() == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL(qPrintable(u"no button "_qs + text));
    }

    static QStringList textsOf(const QWidget* sheet)
    {
        QStringList texts;
        for (const auto* label : sheet ? sheet->findChildren<QLabel*>() : QList<QLabel*>())
            texts += label->text();
        return texts;
    }

    /// All that is stored, to see that nothing has changed.
    [[nodiscard]] QList<std::tuple<WorkspaceValues, qint64, qint64>> contents()
    {
        QList<std::tuple<WorkspaceValues, qint64, qint64>> all;
        for (const TrovellWorkspace* workspace : context().workspaces())
            all.append({workspace->values(), workspace->itemCount(), workspace->placementCount()});
        return all;
    }

    MainWorkspaceView* view = nullptr;
    WorkspaceSidebarList* list = nullptr;
    Detail* detail = nullptr;
};

/// A store of workspaces with an item each.
void writeThousand(const QString& folder)
{
    const auto store = WorkspaceStore::open(folder);
    StoreContext& context = (*store)->mainContext();
    for (int i = 0; i < 1000; ++i) {
        auto workspace = std::make_unique<TrovellWorkspace>(
            WorkspaceValues{.name = QString::number(i), .sortOrder = i});
        workspace->appendItem(std::make_unique<WorkspaceItem>(WorkspaceItemValues{
            .typeRawValue = rawValue(WorkspaceItemType::webLink), .urlString = u"https://a.b"_qs}));
        context.insert(std::move(workspace));
    }
    QVERIFY(context.save());
}

void flush()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class MainWorkspaceViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<Desk>(); }
    void cleanup() { m_desk.reset(); }

    void showsTheEmptyStateExactlyWithoutWorkspaces()
    {
        m_desk->open();
        auto* empty = m_desk->view->findChild<WorkspaceEmptyView*>();
        QVERIFY(empty->isVisible());
        QVERIFY(m_desk->view->selection().isNull());
        const TrovellWorkspace& work = m_desk->addWorkspace(u"W"_qs);
        QTRY_COMPARE(m_desk->view->selection(), work.id());
        QVERIFY(!empty->isVisible() && m_desk->detail->isVisible());

        Q_EMIT m_desk->detail->deleteRequested();
        Desk::press(u"Delete"_qs, Desk::front<Alert>());
        QTRY_VERIFY(empty->isVisible());
        QVERIFY(m_desk->view->selection().isNull());
        QVERIFY(!m_desk->view->activeAlert());
        Desk::press(u"New Empty Workspace"_qs, empty);
        QVERIFY(Desk::front<WorkspaceEditorView>());
    }

    void marksTheSelectionAsActiveWhoeverHasTheFocus()
    {
        m_desk->open(u"A"_qs);
        m_desk->list->clearFocus();
        const QImage rows = m_desk->list->viewport()->grab().toImage();
        const QRect row = m_desk->list->rowRect(m_desk->list->currentIndex());
        QCOMPARE(rows.pixelColor(row.right() - 4, row.center().y()),
                 m_desk->environment().visual.color(ColorToken::selection));
    }

    void deletesOnlyAfterAsking()
    {
        m_desk->open(u"ABC"_qs);
        QTest::keyClick(m_desk->list, Qt::Key_Down);
        QCOMPARE(m_desk->view->selection(), m_desk->workspace(1).id());
        Q_EMIT m_desk->detail->deleteRequested();
        const QWidget* focused = Desk::front<Alert>()->focusWidget();
        QCOMPARE(focused->property("text").toString(), u"Cancel"_qs);
        QTest::keyClick(Desk::front<Alert>(), Qt::Key_Escape);
        QCOMPARE(m_desk->namesInStore(), u"ABC"_qs);
        QVERIFY(!m_desk->view->activeAlert());

        Q_EMIT m_desk->detail->deleteRequested();
        Desk::press(u"Delete"_qs, Desk::front<Alert>());
        flush();
        QCOMPARE(m_desk->namesInStore(), u"AC"_qs);
        QCOMPARE(m_desk->namesOnScreen(), u"AC"_qs);
        QCOMPARE(m_desk->selectedName(), u"A"_qs);
        // No renumbering.
        QCOMPARE(m_desk->workspace(1).sortOrder(), 2);
    }

    void duplicatesWithEverythingButTheShortcut()
    {
        TrovellWorkspace& work = m_desk->addWorkspace(u"Work"_qs);
        work.setShortcut(ShortcutDefinition{18, 0x1800, u"⌃⌥1"_qs});
        work.setAccentIdentifier(u"green"_qs);
        m_desk->addItem(work, WorkspaceItemType::folder, u"Papers"_qs).setTypeRawValue(u"new"_qs);
        m_desk->addPlacement(work, u"org.example.Editor"_qs).setDisplayFingerprintData("unread");
        m_desk->open();
        Q_EMIT m_desk->detail->duplicateRequested();
        QCOMPARE(m_desk->view->notice()->message, u"Work Copy created."_qs);
        QCOMPARE(m_desk->selectedName(), u"Work Copy"_qs);
        flush();
        m_desk->list->setCurrentIndex(m_desk->list->model()->index(0, 0));
        Q_EMIT m_desk->detail->duplicateRequested();

        QCOMPARE(m_desk->context().workspaces().size(), 3);
        for (const int row : {1, 2}) {
            const TrovellWorkspace& copy = m_desk->workspace(row);
            QCOMPARE(copy.name(), u"Work Copy"_qs);
            QCOMPARE(copy.accentIdentifier(), u"green"_qs);
            QCOMPARE(copy.sortOrder(), row);
            QVERIFY(!copy.shortcutData());
            const WorkspaceItem& item = *copy.sortedItems().first();
            QCOMPARE(item.typeRawValue(), u"new"_qs);
            QVERIFY(item.id() != work.sortedItems().first()->id());
            auto placement = copy.sortedPlacements().first()->values();
            QVERIFY(placement.id != work.sortedPlacements().first()->id());
            placement.id = work.sortedPlacements().first()->id();
            QCOMPARE(placement, work.sortedPlacements().first()->values());
        }
    }

    void reorders_data()
    {
        QTest::addColumn<std::function<void(Desk&)>>("act");
        QTest::addColumn<QString>("order");
        const auto row = [](const char* name, const QString& order,
                            std::function<void(Desk&)> act) {
            QTest::newRow(name) << act << order;
        };
        row("down", u"BACD"_qs, [](Desk& desk) { desk.drag(0, 2); });
        row("up", u"ADBC"_qs, [](Desk& desk) { desk.drag(3, 1); });
        row("onto the last", u"BCAD"_qs, [](Desk& desk) { desk.drag(0, 3); });
        row("onto itself", u"ABCD"_qs, [](Desk& desk) { desk.drag(2, 2); });
        row("as a text", u"CABD"_qs,
            [](Desk& desk) { QVERIFY(desk.dropText(dragPayload(desk.workspace(2).id()), 0)); });
        row("an unknown one", u"ABCD"_qs,
            [](Desk& desk) { QVERIFY(desk.dropText(dragPayload(QUuid::createUuid()), 0)); });
        row("down by key", u"BACD"_qs,
            [](Desk& desk) { QTest::keyClick(desk.list, Qt::Key_Down, Qt::AltModifier); });
        row("to the last place by key", u"BCDA"_qs, [](Desk& desk) {
            for (int i = 0; i < 4; ++i) {
                QTest::keyClick(desk.list, Qt::Key_Down, Qt::AltModifier);
                flush();
            }
        });
        row("up by key", u"ABDC"_qs, [](Desk& desk) {
            QTest::keyClick(desk.list, Qt::Key_End);
            QTest::keyClick(desk.list, Qt::Key_Up, Qt::AltModifier);
        });
    }

    void reorders()
    {
        QFETCH(std::function<void(Desk&)>, act);
        QFETCH(QString, order);
        m_desk->open(u"ABCD"_qs);
        const QDateTime before = QDateTime::currentDateTimeUtc();
        const QUuid first = m_desk->view->selection();
        act(*m_desk);
        flush();
        QCOMPARE(m_desk->namesInStore(), order);
        QCOMPARE(m_desk->namesOnScreen(), order);
        for (int row = 0; row < 4; ++row) {
            QCOMPARE(m_desk->workspace(row).sortOrder(), row);
            QVERIFY(m_desk->workspace(row).updatedAt() >= before);
        }
        // The selection went with its workspace, and was not taken by what was dragged.
        if (qstrcmp(QTest::currentDataTag(), "up by key") != 0)
            QCOMPARE(m_desk->view->selection(), first);
        QCOMPARE(m_desk->selectedName(),
                 m_desk->context().workspaces().at(order.indexOf(m_desk->selectedName()))->name());
    }

    void dragsThatAreGivenUpChangeNothing()
    {
        m_desk->open(u"ABC"_qs);
        const auto before = m_desk->contents();
        m_desk->lift(0, 2);
        QTest::keyClick(QWidget::keyboardGrabber(), Qt::Key_Escape);
        m_desk->send(QEvent::MouseButtonRelease, m_desk->middleOf(2), Qt::NoButton);
        QVERIFY(!m_desk->dropText(u"no identifier"_qs, 0));
        // The workspace goes while it is held.
        m_desk->lift(2, 0);
        m_desk->context().remove(m_desk->workspace(2));
        QVERIFY(m_desk->context().save());
        flush();
        m_desk->send(QEvent::MouseMove, m_desk->middleOf(1), Qt::LeftButton);
        m_desk->send(QEvent::MouseButtonRelease, m_desk->middleOf(0), Qt::NoButton);
        QCOMPARE(m_desk->contents(), before.first(2));
    }

    void failedWritesLeaveEverythingAsItWas_data()
    {
        QTest::addColumn<std::function<void(Desk&)>>("act");
        const auto row = [](const char* name, std::function<void(Desk&)> act) {
            QTest::newRow(name) << act;
        };
        row("duplicate", [](Desk& desk) { Q_EMIT desk.detail->duplicateRequested(); });
        row("delete", [](Desk& desk) {
            Q_EMIT desk.detail->deleteRequested();
            Desk::press(u"Delete"_qs, Desk::front<Alert>());
        });
        row("clear layout", [](Desk& desk) {
            Q_EMIT desk.detail->clearLayoutRequested();
            Desk::press(u"Clear Saved Layout"_qs, Desk::front<Alert>());
        });
        row("drag", [](Desk& desk) { desk.drag(0, 2); });
        row("key", [](Desk& desk) { QTest::keyClick(desk.list, Qt::Key_Down, Qt::AltModifier); });
    }

    void failedWritesLeaveEverythingAsItWas()
    {
        QFETCH(std::function<void(Desk&)>, act);
        for (const QString& name : {u"A"_qs, u"B"_qs, u"C"_qs}) {
            TrovellWorkspace& workspace = m_desk->addWorkspace(name);
            m_desk->addPlacement(workspace, u"org.example.Editor"_qs);
        }
        m_desk->open();
        QTest::keyClick(m_desk->list, Qt::Key_Down);
        const auto before = m_desk->contents();
        m_desk->refuseSaving();
        act(*m_desk);
        flush();
        const QString reason = description(StoreError::diskFull);
        QCOMPARE(Desk::textsOf(Desk::front<Alert>()),
                 QStringList({u"Workspace Could Not Be Saved"_qs, reason}));
        QCOMPARE(m_desk->contents(), before);
        QCOMPARE(m_desk->namesOnScreen(), u"ABC"_qs);
        QCOMPARE(m_desk->selectedName(), u"B"_qs);
        QVERIFY(!m_desk->view->notice());
        Desk::press(u"OK"_qs, Desk::front<Alert>());
        QVERIFY(!m_desk->view->activeAlert());
    }

    void clearsTheLayoutAndKeepsTheItems()
    {
        TrovellWorkspace& work = m_desk->addWorkspace(u"Work"_qs);
        m_desk->addItem(work, WorkspaceItemType::folder, u"Papers"_qs);
        m_desk->addPlacement(work, u"org.example.Editor"_qs);
        m_desk->open();
        Q_EMIT m_desk->detail->clearLayoutRequested();
        Desk::press(u"Clear Saved Layout"_qs, Desk::front<Alert>());
        QCOMPARE(work.placementCount(), 0);
        QCOMPARE(work.itemCount(), 1);
        QCOMPARE(m_desk->view->notice()->message, u"Work saved layout cleared."_qs);
    }

    void noticesStayWithTheirWorkspaceUntilDismissed()
    {
        m_desk->open(u"AB"_qs);
        Q_EMIT m_desk->detail->duplicateRequested();
        flush();
        const auto isShown = [this] {
            const auto* banner = m_desk->detail->findChild<WorkspaceNoticeBanner*>();
            return banner && banner->isVisible();
        };
        QTRY_VERIFY(isShown());
        QTest::keyClick(m_desk->list, Qt::Key_Home);
        QTRY_VERIFY(!isShown());
        QTest::keyClick(m_desk->list, Qt::Key_End);
        QTRY_VERIFY(isShown());
        Q_EMIT m_desk->detail->noticeDismissed();
        QTRY_VERIFY(!isShown());
        QVERIFY(!m_desk->view->notice());
    }

    void renames()
    {
        m_desk->open(u"AB"_qs);
        const auto startRenaming = [this](const QString& name) {
            Q_EMIT m_desk->detail->renameRequested();
            auto* sheet = Desk::front<RenameWorkspaceView>();
            auto* field = sheet->findChild<TextField*>();
            field->selectAll();
            QTest::keyClicks(field, name);
            return sheet;
        };
        auto* sheet = startRenaming(u"   "_qs);
        QTest::keyClick(sheet, Qt::Key_Return);
        QVERIFY(Desk::front<RenameWorkspaceView>());
        QTest::keyClick(sheet, Qt::Key_Escape);
        QVERIFY(!m_desk->view->activeSheet());
        QCOMPARE(m_desk->workspace(0).name(), u"A"_qs);

        m_desk->refuseSaving();
        sheet = startRenaming(u"  Work  "_qs);
        QTest::keyClick(sheet, Qt::Key_Return);
        QCOMPARE(Desk::textsOf(Desk::front<Alert>()).first(), u"Workspace Could Not Be Renamed"_qs);
        QCOMPARE(m_desk->workspace(0).name(), u"A"_qs);
        Desk::press(u"OK"_qs, Desk::front<Alert>());
        m_desk->allowSaving();
        QTest::keyClick(sheet, Qt::Key_Return);
        QCOMPARE(m_desk->workspace(0).name(), u"Work"_qs);
        QCOMPARE(m_desk->view->notice()->message, u"Workspace renamed to Work."_qs);
        QVERIFY(!Desk::front<RenameWorkspaceView>());
    }

    void sheetsAndAlertsOutliveTheirWorkspace_data()
    {
        QTest::addColumn<bool>("isAlert");
        QTest::newRow("rename") << false;
        QTest::newRow("delete") << true;
    }

    void sheetsAndAlertsOutliveTheirWorkspace()
    {
        QFETCH(bool, isAlert);
        m_desk->open(u"AB"_qs);
        if (isAlert)
            Q_EMIT m_desk->detail->deleteRequested();
        else
            Q_EMIT m_desk->detail->renameRequested();
        m_desk->context().remove(m_desk->workspace(0));
        QVERIFY(m_desk->context().save());
        flush();
        QCOMPARE(m_desk->selectedName(), u"B"_qs);
        Desk::press(isAlert ? u"Delete"_qs : u"Rename"_qs, Desk::front<Sheet>());
        flush();
        QCOMPARE(m_desk->namesInStore(), u"B"_qs);
        QVERIFY(!m_desk->view->activeAlert() && !m_desk->view->activeSheet());
    }

    void startsByKeyClickMenuAndHotKey()
    {
        TrovellWorkspace& work = m_desk->addWorkspace(u"Work"_qs);
        TrovellWorkspace& play = m_desk->addWorkspace(u"Play"_qs);
        play.setShortcut(ShortcutDefinition{18, 0x1800, u"⌃⌥1"_qs});
        QVERIFY(m_desk->context().save());
        m_desk->open();
        const WorkspaceLauncher& launcher = m_desk->dependencies().launcher();
        const auto started = [&launcher] { return launcher.latestWorkspaceID().value_or(QUuid()); };
        QTest::keyClick(m_desk->list, Qt::Key_Return);
        QTRY_COMPARE(started(), work.id());
        m_desk->hotKeys->press({18, 0x1800});
        QTRY_COMPARE(started(), play.id());
        QTest::mouseDClick(m_desk->list->viewport(), Qt::LeftButton, {}, m_desk->middleOf(0));
        QTRY_COMPARE(started(), work.id());

        // The number of a hot key is its place in the list.
        QTest::keyClick(m_desk->list, Qt::Key_Down, Qt::AltModifier);
        QTRY_COMPARE(m_desk->hotKeys->registered().begin()->second, 1U);
        m_desk->hotKeys->report(7);
        play.setShortcut({});
        play.setUpdatedAt(QDateTime::currentDateTimeUtc().addSecs(1));
        QTRY_VERIFY(m_desk->hotKeys->registered().empty());
        QCOMPARE(started(), work.id());
    }

    void theContextMenuLeavesTheSelectionAlone()
    {
        m_desk->open(u"AB"_qs);
        const QPoint position = m_desk->middleOf(1);
        QTest::mouseClick(m_desk->list->viewport(), Qt::RightButton, {}, position);
        QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                                m_desk->list->viewport()->mapToGlobal(position));
        QApplication::sendEvent(m_desk->list->viewport(), &event);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QStringList texts;
        for (const QAction* action : menu->actions())
            texts += action->text();
        QCOMPARE(texts, QStringList({u"Start Workspace"_qs, u"Edit Workspace"_qs,
                                     u"Save as New Workspace"_qs, u"Duplicate Workspace"_qs,
                                     QString(), u"Delete Workspace"_qs}));
        QCOMPARE(m_desk->selectedName(), u"A"_qs);
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        flush();
        QCOMPARE(m_desk->namesOnScreen(), u"ABB Copy"_qs);
    }

    void opensOneSheetAtATime()
    {
        m_desk->open(u"A"_qs);
        Q_EMIT m_desk->detail->saveAsNewRequested();
        QVERIFY(Desk::front<WorkspaceCaptureView>());
        const QUuid id = m_desk->view->activeSheet()->id;
        Q_EMIT m_desk->detail->editRequested();
        QVERIFY(!Desk::front<WorkspaceEditorView>());
        QCOMPARE(m_desk->view->activeSheet()->id, id);
        Desk::front<WorkspaceCaptureView>()->reject();
        Q_EMIT m_desk->detail->editRequested();
        auto* editor = Desk::front<WorkspaceEditorView>();
        QVERIFY(editor);
        Q_EMIT editor->saved(&m_desk->workspace(0));
        QCOMPARE(m_desk->view->notice()->message, u"A saved."_qs);
    }

    void failuresInTheBackgroundAreToldOnce()
    {
        m_desk->open(u"A"_qs);
        Q_EMIT m_desk->context().automaticSaveFailed(StoreError::diskFull);
        Desk::press(u"OK"_qs, Desk::front<Alert>());
        Q_EMIT m_desk->context().automaticSaveFailed(StoreError::diskFull);
        QVERIFY(!Desk::front<Alert>());
        // After a success it is news again.
        Q_EMIT m_desk->detail->duplicateRequested();
        Q_EMIT m_desk->context().automaticSaveFailed(StoreError::diskFull);
        QVERIFY(Desk::front<Alert>());
    }

    void aThousandWorkspacesCostNoItems()
    {
        const QString folder = m_desk->folder.filePath(u"thousand"_qs);
        writeThousand(folder);
        const auto store = WorkspaceStore::open(folder);
        StoreContext& context = (*store)->mainContext();
        WorkspaceQuery query(context);
        const ViewEnvironment& given = m_desk->environment();
        const ViewEnvironment environment{given.visual, given.words, given.dependencies,
                                          context,      query,       given.icons};
        MainWorkspaceView view(environment);
        view.resize(1180, 760);
        view.show();
        auto* list = view.findChild<WorkspaceSidebarList*>();
        const auto widgets = view.findChildren<QWidget*>().size();
        view.grab();
        QTest::keyClick(list, Qt::Key_End);
        view.grab();
        QCOMPARE(list->currentIndex().row(), 999);
        QVERIFY(list->viewport()->rect().contains(list->rowRect(list->currentIndex())));
        // Only what the detail showed was read, and no row is a widget.
        const auto isRead = [](const TrovellWorkspace* workspace) {
            return !workspace->items().loaded().empty();
        };
        const QList<TrovellWorkspace*> workspaces = query.workspaces();
        QCOMPARE(std::ranges::count_if(workspaces, isRead), 2);
        QVERIFY(view.findChildren<QWidget*>().size() < widgets + 50);
    }

    void changesElsewhereDoNotScrollAway()
    {
        for (int i = 0; i < 60; ++i)
            m_desk->addWorkspace(QString::number(i));
        m_desk->open();
        QScrollBar* bar = m_desk->list->verticalScrollBar();
        bar->setValue(1000);
        m_desk->drag(25, 23);
        flush();
        QCOMPARE(m_desk->workspace(23).name(), u"25"_qs);
        QCOMPARE(bar->value(), 1000);
        // The selected one is followed where it goes.
        QTest::keyClick(m_desk->list, Qt::Key_End);
        QTest::keyClick(m_desk->list, Qt::Key_Up, Qt::AltModifier);
        flush();
        QVERIFY(m_desk->list->viewport()->rect().contains(m_desk->middleOf(58)));
    }

    void theTabKeyGoesFromTheSidebarToTheDetail()
    {
        m_desk->open(u"A"_qs);
        QStringList names;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(m_desk->window().focusWidget(), Qt::Key_Tab);
            const QWidget* focused = m_desk->window().focusWidget();
            const QString name = focused->accessibleName();
            names += name.isEmpty() ? focused->property("text").toString() : name;
        }
        QCOMPARE(names, QStringList({u"Settings"_qs, u"Add Workspace"_qs, u"Save Layout"_qs}));
    }

    void rowsSayEverythingToAssistiveTools()
    {
        TrovellWorkspace& work = m_desk->addWorkspace(u"Work"_qs);
        work.setShortcut(ShortcutDefinition{18, 0x1800, u"⌃⌥1"_qs});
        m_desk->addItem(work, WorkspaceItemType::folder, u"Papers"_qs);
        m_desk->open();
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(m_desk->list);
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->child(0)->role(), QAccessible::ListItem);
        QCOMPARE(list->child(0)->text(QAccessible::Name), u"Work, 1 items, Ctrl+Alt+1"_qs);
    }

    void fitsEveryLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("longer") << u"en-XA"_qs;
        QTest::newRow("mirrored") << u"ar-XB"_qs;
    }

    void fitsEveryLanguage()
    {
        QFETCH(QString, language);
        Localization words({QStringLiteral(TROVELL_TEST_LANGUAGES)});
        words.setLanguage(language);
        const ViewEnvironment& given = m_desk->environment();
        const ViewEnvironment environment{
            given.visual, words, given.dependencies, given.context, given.workspaces, given.icons};
        MainWorkspaceView view(environment);
        view.resize(900, 620);
        view.show();
        TrovellWorkspace& work = m_desk->addWorkspace(u"Work"_qs);
        for (const bool isEmpty : {false, true}) {
            if (isEmpty) {
                m_desk->context().remove(work);
                QVERIFY(m_desk->context().save());
            }
            flush();
            QTest::qWait(1);
            QCOMPARE(clippedTexts(view).join(u'|'), QString());
            QCOMPARE(textsNotLookedUp(view, {u"Trovell"_qs, u"Work"_qs}).join(u'|'), QString());
        }
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

private:
    std::unique_ptr<Desk> m_desk;
};

QTEST_MAIN(MainWorkspaceViewTest)
#include "MainWorkspaceViewTest.moc"
