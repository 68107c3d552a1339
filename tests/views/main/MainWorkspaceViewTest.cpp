// SPDX-License-Identifier: MIT
//
// The main window as people use it, over a real store whose disk can be made to fail.
#include "views/main/MainWorkspaceView.h"

#include "editing/Reorder.h"
#include "support/Patience.h"
#include "support/StoreContents.h"
#include "views/capture/WorkspaceCaptureView.h"
#include "views/detail/WorkspaceDetailView.h"
#include "views/detail/WorkspaceNoticeBanner.h"
#include "views/editor/WorkspaceEditorView.h"
#include "views/main/RenameWorkspaceView.h"
#include "views/main/WorkspaceEmptyView.h"
#include "views/main/WorkspaceSidebarList.h"
#include "views/style/TextField.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;

namespace {

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
        detail = view->findChild<WorkspaceDetailView*>();
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

    void removeWorkspace(int row)
    {
        context().remove(workspace(row));
        save();
        flush();
    }

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
    [[nodiscard]] QWidget& rows() const { return *list->viewport(); }
    [[nodiscard]] QPoint middleOf(int row) const
    {
        return list->rowRect(list->model()->index(row, 0)).center();
    }

    void dragRow(int row, int target) const { drag(rows(), middleOf(row), middleOf(target)); }
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(list, key, modifiers);
        flush();
    }

    /// The sheet of that kind in front; null when there is none.
    template <class Kind = Alert> [[nodiscard]] Kind* front() { return sheetOver<Kind>(window()); }

    [[nodiscard]] QString noticeText() const
    {
        return view->notice() ? view->notice()->message.productText() : QString();
    }

    static void flush()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    MainWorkspaceView* view = nullptr;
    WorkspaceSidebarList* list = nullptr;
    WorkspaceDetailView* detail = nullptr;
};

using Act = std::function<void(Desk&)>;

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
        QVERIFY(empty->isVisible() && m_desk->view->selection().isNull());
        const TrovellWorkspace& work = m_desk->addWorkspace(u"W"_s);
        QTRY_COMPARE(m_desk->view->selection(), work.id());
        QVERIFY(!empty->isVisible() && m_desk->detail->isVisible());
        m_desk->removeWorkspace(0);
        QTRY_VERIFY(empty->isVisible());
        QVERIFY(m_desk->view->selection().isNull());
        click(*empty, u"New Empty Workspace"_s);
        QVERIFY(m_desk->front<WorkspaceEditorView>());
    }

    void deletesOnlyAfterAsking()
    {
        m_desk->open(u"ABC"_s);
        m_desk->pressKey(Qt::Key_Down);
        QCOMPARE(m_desk->view->selection(), m_desk->workspace(1).id());
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::remove);
        QCOMPARE(m_desk->front()->focusWidget(), find(*m_desk->front(), u"Cancel"_s));
        QTest::keyClick(m_desk->front(), Qt::Key_Escape);
        QCOMPARE(m_desk->namesInStore(), u"ABC"_s);
        QVERIFY(!m_desk->view->activeAlert());

        Q_EMIT m_desk->detail->chosen(WorkspaceAction::remove);
        click(*m_desk->front(), u"Delete"_s);
        Desk::flush();
        QCOMPARE(m_desk->namesInStore(), u"AC"_s);
        QCOMPARE(m_desk->namesOnScreen(), u"AC"_s);
        QCOMPARE(m_desk->selectedName(), u"A"_s);
        // No renumbering.
        QCOMPARE(m_desk->workspace(1).sortOrder(), 2);
    }

    void duplicatesAndClearsTheLayoutOfTheCopy()
    {
        m_desk->addPlacement(m_desk->addWorkspace(u"Work"_s), u"org.example.Editor"_s);
        m_desk->open();
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::duplicate);
        QCOMPARE(m_desk->noticeText(), u"Work Copy created."_s);
        QCOMPARE(m_desk->selectedName(), u"Work Copy"_s);
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::clearLayout);
        click(*m_desk->front(), u"Clear Saved Layout"_s);
        QCOMPARE(m_desk->noticeText(), u"Work Copy saved layout cleared."_s);
        QCOMPARE(m_desk->workspace(0).placementCount(), 1);
        QCOMPARE(m_desk->workspace(1).placementCount(), 0);
    }

    void reorders_data()
    {
        QTest::addColumn<Act>("act");
        QTest::addColumn<QString>("order");
        const auto row = [](const char* name, const QString& order, const Act& act) {
            QTest::newRow(name) << act << order;
        };
        row("down", u"BACD"_s, [](Desk& desk) { desk.dragRow(0, 2); });
        row("up", u"ADBC"_s, [](Desk& desk) { desk.dragRow(3, 1); });
        row("as a text", u"CABD"_s, [](Desk& desk) {
            QVERIFY(dropText(desk.rows(), dragPayload(desk.workspace(2).id()), desk.middleOf(0)));
        });
        row("to the last place by key", u"BCDA"_s, [](Desk& desk) {
            for (int i = 0; i < 4; ++i)
                desk.pressKey(Qt::Key_Down, Qt::AltModifier);
        });
        row("back up by key", u"BACD"_s, [](Desk& desk) {
            for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up})
                desk.pressKey(key, Qt::AltModifier);
        });
    }

    void reorders()
    {
        QFETCH(Act, act);
        QFETCH(QString, order);
        m_desk->open(u"ABCD"_s);
        const QDateTime before = QDateTime::currentDateTimeUtc();
        act(*m_desk);
        Desk::flush();
        QCOMPARE(m_desk->namesInStore(), order);
        QCOMPARE(m_desk->namesOnScreen(), order);
        for (int row = 0; row < 4; ++row) {
            QCOMPARE(m_desk->workspace(row).sortOrder(), row);
            QVERIFY(m_desk->workspace(row).updatedAt() >= before);
        }
        // The selection went with its workspace, and was not taken by what was dragged.
        QCOMPARE(m_desk->selectedName(), u"A"_s);
        QCOMPARE(m_desk->view->selection(), m_desk->workspace(int(order.indexOf(u'A'))).id());
    }

    void dragsThatAreGivenUpChangeNothing()
    {
        m_desk->open(u"ABC"_s);
        const StoreContents before = m_desk->contents();
        QVERIFY(!dropText(m_desk->rows(), u"no identifier"_s, m_desk->middleOf(0)));
        QCOMPARE(m_desk->contents(), before);
        // The workspace went while it was held.
        const QString gone = dragPayload(m_desk->workspace(2).id());
        m_desk->removeWorkspace(2);
        QVERIFY(dropText(m_desk->rows(), gone, m_desk->middleOf(0)));
        QCOMPARE(m_desk->namesInStore(), u"AB"_s);
    }

    void failedWritesAreToldAndLeaveTheScreenAsItWas()
    {
        m_desk->open(u"ABC"_s);
        m_desk->pressKey(Qt::Key_Down);
        const StoreContents before = m_desk->contents();
        m_desk->refuseSaving();
        const QList<Act> acts{
            [](Desk& desk) { Q_EMIT desk.detail->chosen(WorkspaceAction::duplicate); },
            [](Desk& desk) {
                Q_EMIT desk.detail->chosen(WorkspaceAction::remove);
                click(*desk.front(), u"Delete"_s);
            },
            [](Desk& desk) {
                Q_EMIT desk.detail->chosen(WorkspaceAction::clearLayout);
                click(*desk.front(), u"Clear Saved Layout"_s);
            },
            [](Desk& desk) { desk.dragRow(0, 2); },
            [](Desk& desk) { desk.pressKey(Qt::Key_Down, Qt::AltModifier); },
        };
        for (const Act& act : acts) {
            act(*m_desk);
            Desk::flush();
            QCOMPARE(answeredAlert(m_desk->window()),
                     QStringList({u"Workspace Could Not Be Saved"_s,
                                  description(StoreError::diskFull).productText()}));
            QVERIFY(!m_desk->view->activeAlert() && !m_desk->view->notice());
            QCOMPARE(m_desk->contents(), before);
            QCOMPARE(m_desk->namesOnScreen(), u"ABC"_s);
            QCOMPARE(m_desk->selectedName(), u"B"_s);
        }
    }

    void noticesStayWithTheirWorkspaceUntilDismissed()
    {
        m_desk->open(u"AB"_s);
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::duplicate);
        Desk::flush();
        const auto* banner = m_desk->detail->findChild<WorkspaceNoticeBanner*>();
        QTRY_VERIFY(banner->isVisible());
        m_desk->pressKey(Qt::Key_Home);
        QTRY_VERIFY(!banner->isVisible());
        m_desk->pressKey(Qt::Key_End);
        QTRY_VERIFY(banner->isVisible());
        click(*m_desk->detail, u"Dismiss"_s);
        QTRY_VERIFY(!banner->isVisible());
        QVERIFY(!m_desk->view->notice());
    }

    void renames()
    {
        m_desk->open(u"AB"_s);
        const auto type = [this](const QString& name) {
            Q_EMIT m_desk->detail->chosen(WorkspaceAction::rename);
            auto* field = m_desk->front<RenameWorkspaceView>()->findChild<TextField*>();
            field->selectAll();
            QTest::keyClicks(field, name);
            QTest::keyClick(field, Qt::Key_Return);
            return m_desk->front<RenameWorkspaceView>();
        };
        auto* sheet = type(u"   "_s);
        QVERIFY(sheet);
        QTest::keyClick(sheet, Qt::Key_Escape);
        QVERIFY(!m_desk->view->activeSheet());

        m_desk->refuseSaving();
        sheet = type(u"  Work  "_s);
        QCOMPARE(answeredAlert(*sheet).value(0), u"Workspace Could Not Be Renamed"_s);
        QCOMPARE(m_desk->workspace(0).name(), u"A"_s);
        m_desk->allowSaving();
        QTest::keyClick(sheet, Qt::Key_Return);
        QCOMPARE(m_desk->workspace(0).name(), u"Work"_s);
        QCOMPARE(m_desk->noticeText(), u"Workspace renamed to Work."_s);
        QVERIFY(!m_desk->front<RenameWorkspaceView>());
    }

    void sheetsAndAlertsOutliveTheirWorkspace()
    {
        m_desk->open(u"ABC"_s);
        for (const bool isAlert : {false, true}) {
            if (isAlert)
                Q_EMIT m_desk->detail->chosen(WorkspaceAction::remove);
            else
                Q_EMIT m_desk->detail->chosen(WorkspaceAction::rename);
            m_desk->removeWorkspace(0);
            click(*m_desk->front<Sheet>(), isAlert ? u"Delete"_s : u"Rename"_s);
            Desk::flush();
            QCOMPARE(m_desk->namesInStore(), isAlert ? u"C"_s : u"BC"_s);
            QCOMPARE(m_desk->selectedName(), isAlert ? u"C"_s : u"B"_s);
            QVERIFY(!m_desk->view->activeAlert() && !m_desk->view->activeSheet());
        }
    }

    void startsByKeyClickAndHotKey()
    {
        TrovellWorkspace& work = m_desk->addWorkspace(u"Work"_s);
        TrovellWorkspace& play = m_desk->addWorkspace(u"Play"_s);
        play.setShortcut(ShortcutDefinition{18, 0x1800, u"⌃⌥1"_s});
        m_desk->save();
        m_desk->open();
        const WorkspaceLauncher& launcher = m_desk->dependencies().launcher();
        const auto started = [&launcher] { return launcher.latestWorkspaceID().value_or(QUuid()); };
        QTest::keyClick(m_desk->list, Qt::Key_Return);
        QTRY_COMPARE(started(), work.id());
        m_desk->hotKeys->press(Qt::CTRL | Qt::ALT | Qt::Key_1);
        QTRY_COMPARE(started(), play.id());
        QTest::mouseDClick(&m_desk->rows(), Qt::LeftButton, {}, m_desk->middleOf(0));
        QTRY_COMPARE(started(), work.id());
        play.setShortcut({});
        play.setUpdatedAt(QDateTime::currentDateTimeUtc().addSecs(1));
        QTRY_VERIFY(m_desk->hotKeys->registered.empty());
    }

    void opensOneSheetAtATime()
    {
        m_desk->open(u"A"_s);
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::saveAsNew);
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::edit);
        QVERIFY(!m_desk->front<WorkspaceEditorView>());
        m_desk->front<WorkspaceCaptureView>()->reject();
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::edit);
        click(*m_desk->front<WorkspaceEditorView>(), u"Save"_s);
        QCOMPARE(m_desk->noticeText(), u"A saved."_s);
    }

    void failuresInTheBackgroundAreToldOnce()
    {
        m_desk->open(u"A"_s);
        Q_EMIT m_desk->context().automaticSaveFailed(StoreError::diskFull);
        QVERIFY(!answeredAlert(m_desk->window()).isEmpty());
        Q_EMIT m_desk->context().automaticSaveFailed(StoreError::diskFull);
        QVERIFY(!m_desk->front());
        // After a success it is news again.
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::duplicate);
        Q_EMIT m_desk->context().automaticSaveFailed(StoreError::diskFull);
        QVERIFY(m_desk->front());
    }

    void aThousandWorkspacesCostNoItems()
    {
        const QString folder = m_desk->folder.filePath(u"thousand"_s);
        auto store = openStore(folder);
        for (int i = 0; i < 1000; ++i)
            store->mainContext().insert(makeWorkspace(QString::number(i), i, 1));
        QVERIFY(store->mainContext().save());
        store.reset();
        store = openStore(folder);
        WorkspaceQuery query(store->mainContext());
        MainWorkspaceView view(m_desk->environment(store->mainContext(), query));
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
        QCOMPARE(std::ranges::count_if(query.workspaces(), isRead), 2);
        QVERIFY(view.findChildren<QWidget*>().size() < widgets + 50);
    }

    void isReadAndReachedByKeyboard()
    {
        TrovellWorkspace& work = m_desk->addWorkspace(u"Work"_s);
        work.setShortcut(ShortcutDefinition{18, 0x1800, u"⌃⌥1"_s});
        m_desk->addItem(work, WorkspaceItemType::folder, u"Papers"_s);
        m_desk->open();
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(m_desk->list);
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->child(0)->role(), QAccessible::ListItem);
        QCOMPARE(list->child(0)->text(QAccessible::Name), u"Work, 1 items, Ctrl+Alt+1"_s);
        for (const QString& name : {u"Settings"_s, u"Add Workspace"_s, u"Save Layout"_s}) {
            QTest::keyClick(m_desk->window().focusWidget(), Qt::Key_Tab);
            QCOMPARE(m_desk->window().focusWidget(), find(*m_desk->view, name));
        }
    }

    void fitsEveryLanguage()
    {
        m_desk->open(u"A"_s);
        m_desk->window().resize(900, 620);
        Localization& words = m_desk->environment().words;
        const QStringList data{u"Trovell"_s, u"A"_s};
        QCOMPARE(languageProblems(*m_desk->view, words, data), QString());
        // Alerts that are open meanwhile: the question, and the failure.
        m_desk->refuseSaving();
        Q_EMIT m_desk->detail->chosen(WorkspaceAction::remove);
        QCOMPARE(languageProblems(*m_desk->front(), words, data), QString());
        click(*m_desk->front(), u"Delete"_s);
        QCOMPARE(languageProblems(*m_desk->front(), words, data), QString());
        m_desk->allowSaving();
        QVERIFY(!answeredAlert(m_desk->window()).isEmpty());
        m_desk->removeWorkspace(0);
        QCOMPARE(languageProblems(*m_desk->view, words, data), QString());
    }

private:
    std::unique_ptr<Desk> m_desk;
};

QTEST_MAIN(MainWorkspaceViewTest)
#include "MainWorkspaceViewTest.moc"
