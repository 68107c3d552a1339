// SPDX-License-Identifier: MIT
//
// The selected workspace as people see and use it.
#include "views/detail/WorkspaceDetailView.h"

#include "support/Patience.h"
#include "views/detail/AccessibilityBanner.h"
#include "views/detail/DisplayPreview.h"
#include "views/detail/LaunchReportBanner.h"
#include "views/detail/LayoutPreview.h"
#include "views/detail/WindowMiniature.h"
#include "views/shared/RowList.h"
#include "views/shared/RowModel.h"
#include "views/style/PushButton.h"
#include "views/style/ScrollArea.h"
#include "views/style/TextLabel.h"
#include "views/support/Controls.h"
#include "views/support/ViewFixture.h"
#include "views/words/Phrases.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;
using namespace std::chrono_literals;

class WorkspaceDetailViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_work = &m_fixture->addWorkspace(u"Work"_s);
        m_view = new WorkspaceDetailView(m_fixture->environment().detail());
        m_fixture->window().setCentralWidget(m_view);
        m_fixture->dependencies().accessibility().refresh();
        m_view->setWorkspace(m_work);
        m_fixture->window().show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_fixture->window()));
    }
    void cleanup() { m_fixture.reset(); }

    void whatCanBeDoneDependsOnWhatThereIs()
    {
        const auto shows = [this](const QString& counts, bool canStart) {
            return QTest::qWaitFor(
                [&] {
                    return find<TextLabel>(*m_view, counts) && start()->isEnabled() == canStart;
                },
                patience);
        };
        m_fixture->setTrusted(false);
        auto* banner = child<AccessibilityBanner>();
        QVERIFY(shows(u"0 active items • 0 saved windows"_s, false));
        QVERIFY(find<TextLabel>(*m_view, u"No items yet"_s));
        QVERIFY(!menuAction(u"Clear Saved Layout"_s)->isEnabled());
        QVERIFY(!child<LayoutPreview>()->isVisible() && !banner->isVisible());

        WindowPlacement& placement = m_fixture->addPlacement(*m_work, u"mail"_s);
        QVERIFY(shows(u"0 active items • 1 saved windows"_s, false));
        QVERIFY(menuAction(u"Clear Saved Layout"_s)->isEnabled());
        QVERIFY(child<LayoutPreview>()->isVisible() && banner->isVisible());
        m_fixture->windows->trusted = true;
        click(*banner, u"Try Again"_s);
        QVERIFY(!banner->isVisible());

        WorkspaceItem& item = addLink();
        QVERIFY(shows(u"1 active items • 1 saved windows"_s, true));
        QVERIFY(!find<TextLabel>(*m_view, u"No items yet"_s));
        item.setIsEnabled(false);
        placement.setIsEnabled(false);
        QVERIFY(shows(u"0 active items • 0 saved windows"_s, true));
    }

    void menuAsksTheWindow()
    {
        const std::pair<QString, WorkspaceAction> actions[]{
            {u"Edit Workspace"_s, WorkspaceAction::edit},
            {u"Save as New Workspace"_s, WorkspaceAction::saveAsNew},
            {u"Duplicate Workspace"_s, WorkspaceAction::duplicate},
            {u"Rename"_s, WorkspaceAction::rename},
            {u"Delete Workspace"_s, WorkspaceAction::remove}};
        QList<WorkspaceAction> chosen;
        connect(m_view, &WorkspaceDetailView::chosen, this,
                [&chosen](WorkspaceAction action) { chosen.append(action); });
        for (const auto& [text, action] : actions) {
            menuAction(text)->trigger();
            QCOMPARE(chosen.takeLast(), action);
        }
        disconnect(m_view, &WorkspaceDetailView::chosen, this, nullptr);
    }

    void reportsALaunchUntilTheNext()
    {
        addLink();
        m_fixture->addItem(*m_work, WorkspaceItemType::file, u"gone.txt"_s);
        TrovellWorkspace& other = m_fixture->addWorkspace(u"Other"_s);
        launch();
        auto* banner = child<LaunchReportBanner>();
        QVERIFY(find<TextLabel>(*banner, u"Workspace started with skipped items"_s));
        m_view->setWorkspace(&other);
        QVERIFY(!banner->isVisible());
        m_view->setWorkspace(m_work);
        QVERIFY(banner->isVisible());

        auto* disclosure = find<PushButton>(*banner, u"Show Details"_s);
        const auto state = [disclosure] {
            return QAccessible::queryAccessibleInterface(disclosure)->state();
        };
        disclosure->setFocus(Qt::TabFocusReason);
        QVERIFY(state().collapsed);
        const int height = banner->height();
        QTest::keyClick(disclosure, Qt::Key_Space);
        QVERIFY(state().expanded);
        QTRY_VERIFY(banner->height() > height);
        const auto details = banner->findChildren<SelectableLabel*>();
        QCOMPARE(details.size(), 1);
        QVERIFY(details[0]->accessibleName().contains(u"could not be found"));

        for (WorkspaceItem* item : m_work->sortedItems())
            item->setIsEnabled(false);
        // No second press.
        m_fixture->clock.advance(std::chrono::seconds(5));
        launch();
        QVERIFY(find<TextLabel>(*banner, u"Nothing to start"_s));
        QVERIFY(!disclosure->isVisible());
        m_fixture->dependencies().launcher().start(&other, true, 1);
        QTRY_VERIFY(!m_fixture->dependencies().launcher().isLaunching());
        QVERIFY(!banner->isVisible());
    }

    void putsWindowsBack()
    {
        addLink();
        m_fixture->addPlacement(*m_work, u"editor"_s);
        const auto window =
            m_fixture->windows->addWindow(u"editor"_s, {.title = u"editor window"_s});
        const QRectF frame = m_fixture->windows->window(window).frame;
        m_fixture->setTrusted(true);
        launch();
        QVERIFY(m_fixture->windows->window(window).frame != frame);
        auto* putBack = find<PushButton>(*child<LaunchReportBanner>(), u"Put Windows Back"_s);
        QVERIFY(putBack && putBack->isVisible());
        QTest::mouseClick(putBack, Qt::LeftButton);
        QTRY_COMPARE(m_fixture->windows->window(window).frame, frame);
        waitForLaunch();
        QVERIFY(!putBack->isVisible());
    }

    void startKeepsItsWidthAndFocus()
    {
        addLink();
        m_fixture->addPlacement(*m_work, u"mail"_s);
        QTRY_VERIFY(start()->isEnabled());
        const QRect geometry = start()->geometry();
        start()->setFocus(Qt::TabFocusReason);
        QTest::keyClick(start(), Qt::Key_Space);
        QTRY_COMPARE(start()->text(), u"Starting…"_s);
        QCOMPARE(start()->geometry(), geometry);
        QVERIFY(start()->hasFocus());

        // Only the workspace that is being started offers to cancel.
        TrovellWorkspace& other = m_fixture->addWorkspace(u"Other"_s);
        m_fixture->addItem(other, WorkspaceItemType::webLink, u"link"_s, u"https://a.example"_s);
        m_view->setWorkspace(&other);
        QCOMPARE(start()->text(), u"Start Workspace"_s);
        QVERIFY(!start()->isEnabled());
        m_view->setWorkspace(m_work);
        QTest::qWait(QApplication::doubleClickInterval() + 1);
        QCOMPARE(start()->accessibleDescription(), u"Cancel"_s);
        start()->click();
        QTRY_VERIFY(start()->text() == u"Start Workspace"_s && start()->isEnabled());
    }

    void missingResourcesAreMarked()
    {
        const QString path = m_fixture->folder.filePath(u"notes 1.txt"_s);
        const QString url = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
        auto& item = m_fixture->addItem(*m_work, WorkspaceItemType::file, u"notes"_s, url);
        addLink();
        QTRY_VERIFY(isMarked(0));

        // Found again as soon as someone looks again.
        QVERIFY(QFile(path).open(QFile::WriteOnly));
        m_fixture->window().hide();
        m_fixture->window().show();
        QTRY_VERIFY(!isMarked(0));
        item.setUrlString(u"no address: %"_s);
        QTRY_VERIFY(isMarked(0));
        QVERIFY(!isMarked(1));
    }

    void miniaturesStandWhereTheWindowsStood()
    {
        const DisplayFingerprint wide{
            .localizedName = u"Wide"_s, .pointWidth = 2000, .pointHeight = 1000};
        const DisplayFingerprint flat{.localizedName = u"Flat"_s, .pointWidth = 1};
        addPlacement(u"tiny"_s, wide, {0, 0, 0.01, 0.01});
        addPlacement(u"elsewhere"_s, flat, {0, 0, 1, 1});
        addPlacement(u"upper right"_s, wide, {0.5, 0.75, 0.5, 0.25});
        WindowPlacement& maximized = m_work->appendPlacement(std::make_unique<WindowPlacement>(
            WindowPlacementValues{.applicationName = u"maximized"_s,
                                  .normalizedY = 0.5,
                                  .normalizedWidth = 0.5,
                                  .normalizedHeight = 0.5,
                                  .displayFingerprintData = encodeFingerprint(wide),
                                  .windowStates = u"maximizedHorizontally"_s}));
        auto* preview = child<LayoutPreview>();
        QTRY_COMPARE(preview->findChildren<DisplayPreview*>().size(), 2);
        const auto* display = preview->findChild<DisplayPreview*>();
        QTRY_COMPARE(display->width(), preview->width());

        // Without the margins beside the picture and the caption and gap above it.
        const double width = display->width() - 32;
        const double height = width / 2;
        const QPointF corner(16, display->height() - 14 - std::ceil(height));
        const auto frame = [&](const QString& name) {
            return find<WindowMiniature>(*preview, name)->frame().translated(-corner);
        };
        QCOMPARE(frame(u"tiny"_s), QRectF(0, 0.99 * height, 20, 16));
        QCOMPARE(frame(u"upper right"_s), QRectF(width / 2, 0, width / 2, height / 4));
        QCOMPARE(frame(u"elsewhere"_s).size(), QSizeF(width, width / 1.2));
        QCOMPARE(frame(u"maximized"_s), QRectF(0, 0, width, height / 2));
        maximized.setRestoresState(false);
        QTRY_COMPARE(frame(u"maximized"_s), QRectF(0, 0, width / 2, height / 2));
        auto* tiny = find<WindowMiniature>(*preview, u"tiny"_s);
        const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(tiny);
        QCOMPARE(face->role(), QAccessible::Graphic);
        QCOMPARE(face->parent()->text(QAccessible::Name), u"Wide"_s);
    }

    void longTextsAndOtherDirectionsFit()
    {
        m_fixture->setTrusted(false);
        m_fixture->addItem(*m_work, WorkspaceItemType::file, u"gone.txt"_s);
        addLink().setIsEnabled(false);
        m_fixture->addPlacement(*m_work, u"mail"_s);
        launch();
        m_view->setNotice({phrases::saved, u"Work"_s});
        child<LaunchReportBanner>()->findChild<PushButton*>()->click();
        // The smallest window with the widest of the usual sidebars.
        m_fixture->window().resize(900 - 245, 620);
        QStringList data{u"Work"_s, u"gone.txt"_s, u"link"_s, u"mail"_s};
        data += m_fixture->windows->displays.first().name;
        Localization& words = m_fixture->environment().words;
        QCOMPARE(languageProblems(*m_view, words, data), QString());
        words.setLanguage(u"en-XA"_s);
        const auto* content = child<ScrollArea>()->widget();
        QTRY_COMPARE(content->width(), m_view->width());
        for (const auto* part : content->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            QVERIFY2(part->isHidden() || content->rect().contains(part->geometry()),
                     part->metaObject()->className());

        // The banner's buttons wrap.
        m_fixture->environment().visual.setFontFactor(1.5);
        const auto* banner = child<AccessibilityBanner>();
        QCOMPARE(languageProblems(*banner, words), QString());
        QTRY_COMPARE(content->width(), m_view->width());
    }

private:
    template <class Widget> Widget* child() { return m_view->findChild<Widget*>(); }
    ActionButton* start() { return m_view->findChildren<ActionButton*>().last(); }
    bool isMarked(int row)
    {
        const QAbstractItemModel* model = child<RowList>()->model();
        const QModelIndex index = model->index(row, 0);
        const QString face = index.data(Qt::AccessibleTextRole).toString();
        return index.data(isWarningRole).toBool() && face.contains(u"Resource is missing."_s);
    }

    QAction* menuAction(const QString& text)
    {
        const auto* menu = find<SymbolButton>(*m_view, u"Workspace Actions"_s)->menu();
        for (QAction* action : menu->actions()) {
            if (action->text() == text)
                return action;
        }
        qFatal("no action reads %s", qPrintable(text));
    }

    WorkspaceItem& addLink()
    {
        return m_fixture->addItem(*m_work, WorkspaceItemType::webLink, u"link"_s,
                                  u"https://news.example"_s);
    }

    void addPlacement(const QString& application, const DisplayFingerprint& display,
                      const NormalizedFrame& frame)
    {
        const qint64 index = m_work->placementCount();
        m_work->appendPlacement(
            std::make_unique<WindowPlacement>(application, application, std::nullopt, std::nullopt,
                                              std::nullopt, index, frame, QRectF(), display, true));
    }

    void launch()
    {
        QTRY_VERIFY(start()->isEnabled());
        QTest::mouseClick(start(), Qt::LeftButton);
        waitForLaunch();
    }

    void waitForLaunch()
    {
        const WorkspaceLauncher& launcher = m_fixture->dependencies().launcher();
        const auto isDone = [&] {
            // Only windows are waited for; everything else answers by itself.
            if (m_fixture->clock.sleeperCount(250ms) > 0)
                m_fixture->clock.advance(250ms);
            return !launcher.isLaunching();
        };
        QTRY_VERIFY(isDone());
    }

    std::unique_ptr<ViewFixture> m_fixture;
    TrovellWorkspace* m_work = nullptr;
    /// Owned by the fixture's window.
    WorkspaceDetailView* m_view = nullptr;
};

QTEST_MAIN(WorkspaceDetailViewTest)
#include "WorkspaceDetailViewTest.moc"
