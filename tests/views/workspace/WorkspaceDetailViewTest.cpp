// The selected workspace as people see and use it.
#include "views/workspace/WorkspaceDetailView.h"

#include "views/style/ActionButton.h"
#include "views/style/PushButton.h"
#include "views/style/ScrollArea.h"
#include "views/style/SymbolButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"
#include "views/support/ViewFixture.h"
#include "views/workspace/AccessibilityBanner.h"
#include "views/workspace/DisplayPreview.h"
#include "views/workspace/LaunchReportBanner.h"
#include "views/workspace/LayoutPreview.h"
#include "views/workspace/WindowMiniature.h"
#include "views/workspace/WorkspaceItemRow.h"
#include "views/workspace/WorkspaceNoticeBanner.h"
#include "words/WidgetTexts.h"

#include <QAccessible>

using namespace trovell;
using namespace trovell::test;
using namespace std::chrono_literals;

namespace {

template <class Widget> Widget* find(const QWidget& root, const QString& text)
{
    for (Widget* widget : root.findChildren<Widget*>()) {
        const bool isNamed = widget->accessibleName() == text;
        if (isNamed || widget->property("text").toString() == text)
            return widget;
    }
    return nullptr;
}

QAction* menuAction(const QWidget& view, const QString& text)
{
    const auto* button = find<SymbolButton>(view, u"Workspace Actions"_qs);
    for (QAction* action : button->menu()->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

SymbolView* missingMark(const WorkspaceItemRow& row)
{
    return find<SymbolView>(row, u"Resource is missing. Edit the workspace to locate it again."_qs);
}

void createFile(const QString& path)
{
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
}

} // namespace

class WorkspaceDetailViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_work = &m_fixture->addWorkspace(u"Work"_qs);
        m_view = new WorkspaceDetailView(m_fixture->environment());
        m_fixture->window().setCentralWidget(m_view);
        m_fixture->dependencies().accessibility().refresh();
        m_view->setWorkspace(m_work);
        m_fixture->window().show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_fixture->window()));
    }

    void cleanup() { m_fixture.reset(); }

    void whatCanBeDoneDependsOnWhatThereIs_data()
    {
        QTest::addColumn<int>("items");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<int>("placements");
        QTest::addColumn<QString>("counts");
        QTest::addColumn<bool>("canStart");
        QTest::newRow("nothing") << 0 << true << 0 << u"0 active items • 0 saved windows"_qs
                                 << false;
        QTest::newRow("only windows")
            << 0 << true << 1 << u"0 active items • 1 saved windows"_qs << false;
        QTest::newRow("all disabled")
            << 2 << false << 2 << u"0 active items • 0 saved windows"_qs << true;
        QTest::newRow("all enabled")
            << 2 << true << 0 << u"2 active items • 0 saved windows"_qs << true;
    }

    void whatCanBeDoneDependsOnWhatThereIs()
    {
        QFETCH(const int, items);
        QFETCH(const bool, enabled);
        QFETCH(const int, placements);
        m_fixture->dependencies().accessibility().setTrusted(false);
        for (int i = 0; i < items; ++i)
            addLink(u"link %1"_qs.arg(i)).setIsEnabled(enabled);
        for (int i = 0; i < placements; ++i)
            m_fixture->addPlacement(*m_work, u"app %1"_qs.arg(i)).setIsEnabled(enabled);

        QFETCH(const QString, counts);
        QTRY_VERIFY(find<TextLabel>(*m_view, counts));
        QFETCH(const bool, canStart);
        QTRY_COMPARE(start()->isEnabled(), canStart);
        QCOMPARE(menuAction(*m_view, u"Clear Saved Layout"_qs)->isEnabled(), placements > 0);
        QCOMPARE(child<LayoutPreview>()->isVisible(), placements > 0);
        QCOMPARE(child<AccessibilityBanner>()->isVisible(), placements > 0);
        QCOMPARE(find<TextLabel>(*m_view, u"No items yet"_qs)->isVisible(), items == 0);
        QVERIFY(find<ActionButton>(*m_view, u"Save Layout"_qs)->isEnabled());
    }

    void buttonsAskTheWindow()
    {
        QSignalSpy updates(m_view, &WorkspaceDetailView::updateLayoutRequested);
        QSignalSpy edits(m_view, &WorkspaceDetailView::editRequested);
        QSignalSpy dismissals(m_view, &WorkspaceDetailView::noticeDismissed);
        QSignalSpy deletions(m_view, &WorkspaceDetailView::deleteRequested);
        m_view->setNotice(u"Work saved."_qs);
        QCOMPARE(find<TextLabel>(*m_view, u"Work saved."_qs)->isVisible(), true);
        click(find<ActionButton>(*m_view, u"Save Layout"_qs));
        click(find<PushButton>(*m_view, u"Edit"_qs));
        click(find<SymbolButton>(*m_view, u"Dismiss"_qs));
        menuAction(*m_view, u"Edit Workspace"_qs)->trigger();
        menuAction(*m_view, u"Delete Workspace"_qs)->trigger();
        QCOMPARE(updates.size(), 1);
        QCOMPARE(edits.size(), 2);
        QCOMPARE(dismissals.size(), 1);
        QCOMPARE(deletions.size(), 1);
        m_view->setNotice(std::nullopt);
        QVERIFY(!child<WorkspaceNoticeBanner>()->isVisible());
    }

    void launchesAreReported_data()
    {
        QTest::addColumn<QStringList>("things");
        QTest::addColumn<QString>("title");
        QTest::addColumn<qsizetype>("details");
        const QString skipped = u"Workspace started with skipped items"_qs;
        QTest::newRow("opened") << QStringList{u"link"_qs} << u"Workspace ready"_qs << qsizetype(0);
        QTest::newRow("restored") << QStringList{u"link"_qs, u"window"_qs} << u"Workspace ready"_qs
                                  << qsizetype(0);
        QTest::newRow("missing") << QStringList{u"link"_qs, u"file"_qs} << skipped << qsizetype(1);
        QTest::newRow("no permission")
            << QStringList{u"link"_qs, u"window"_qs, u"untrusted"_qs} << skipped << qsizetype(1);
        QTest::newRow("nothing enabled")
            << QStringList{u"disabled"_qs} << u"Nothing to start"_qs << qsizetype(0);
    }

    void launchesAreReported()
    {
        QFETCH(const QStringList, things);
        QFETCH(const qsizetype, details);
        m_fixture->windows->trusted = !things.contains(u"untrusted"_qs);
        if (things.contains(u"link"_qs))
            addLink(u"news.example"_qs);
        if (things.contains(u"disabled"_qs))
            addLink(u"news.example"_qs).setIsEnabled(false);
        if (things.contains(u"file"_qs))
            m_fixture->addItem(*m_work, WorkspaceItemType::file, u"gone.txt"_qs);
        if (things.contains(u"window"_qs))
            addOpenWindow(u"mail"_qs);
        launch();

        auto* banner = child<LaunchReportBanner>();
        QVERIFY(banner->isVisible());
        QTEST(banner->findChild<TextLabel*>()->text(), "title");
        auto* disclosure = banner->findChild<PushButton*>();
        QCOMPARE(disclosure->isVisible(), details > 0);
        disclosure->click();
        QCOMPARE(banner->findChildren<SelectableLabel*>().size(), details);
    }

    void aReportBelongsToItsWorkspace()
    {
        addLink(u"news.example"_qs);
        TrovellWorkspace& other = m_fixture->addWorkspace(u"Other"_qs);
        launch();
        auto* banner = child<LaunchReportBanner>();
        m_view->setWorkspace(&other);
        QVERIFY(!banner->isVisible());
        m_view->setWorkspace(m_work);
        QVERIFY(banner->isVisible());
        m_fixture->dependencies().launcher().start(&other, true, 1);
        QTRY_VERIFY(!m_fixture->dependencies().launcher().isLaunching());
        QVERIFY(!banner->isVisible());
    }

    void detailsOpenAndCloseByKeyboard()
    {
        m_fixture->addItem(*m_work, WorkspaceItemType::file, u"gone.txt"_qs);
        launch();
        auto* banner = child<LaunchReportBanner>();
        auto* disclosure = banner->findChild<PushButton*>();
        const auto state = [disclosure] {
            return QAccessible::queryAccessibleInterface(disclosure)->state();
        };
        disclosure->setFocus(Qt::TabFocusReason);
        QVERIFY(state().collapsed);
        const int height = banner->height();
        QTest::keyClick(disclosure, Qt::Key_Space);
        QVERIFY(state().expanded);
        QCOMPARE(disclosure->text(), u"Hide Details"_qs);
        QTRY_VERIFY(banner->height() > height);
        auto* detail = banner->findChild<SelectableLabel*>();
        QVERIFY(detail->textInteractionFlags() & Qt::TextSelectableByMouse);
        QVERIFY(detail->accessibleName().contains(u"could not be found"));

        QTest::keyClick(disclosure, Qt::Key_Return);
        QVERIFY(state().collapsed);
        QTRY_COMPARE(banner->height(), height);
        QCOMPARE(QApplication::focusWidget(), disclosure);
    }

    void startKeepsItsWidthAndFocus()
    {
        addLink(u"news.example"_qs);
        m_fixture->windows->addApplication(u"mail"_qs);
        m_fixture->addPlacement(*m_work, u"mail"_qs);
        QTRY_VERIFY(start()->isEnabled());
        const QRect geometry = start()->geometry();
        start()->setFocus(Qt::TabFocusReason);
        QTest::keyClick(start(), Qt::Key_Space);
        QTRY_COMPARE(start()->text(), u"Starting…"_qs);
        QVERIFY(!start()->isEnabled());
        QCoreApplication::processEvents();
        QCOMPARE(start()->geometry(), geometry);

        waitForLaunch();
        QCOMPARE(start()->text(), u"Start Workspace"_qs);
        QVERIFY(start()->hasFocus());
    }

    void thePermissionBannerGoesWhenItIsGranted()
    {
        m_fixture->windows->trusted = false;
        m_fixture->dependencies().accessibility().refresh();
        m_fixture->addPlacement(*m_work, u"mail"_qs);
        auto* banner = child<AccessibilityBanner>();
        QTRY_VERIFY(banner->isVisible());
        const QString untrustedHelp = find<ActionButton>(*m_view, u"Save Layout"_qs)->toolTip();
        m_fixture->windows->trusted = true;
        click(find<PushButton>(*banner, u"Try Again"_qs));
        QVERIFY(!banner->isVisible());
        QVERIFY(find<ActionButton>(*m_view, u"Save Layout"_qs)->toolTip() != untrustedHelp);
    }

    void thePermissionBannerWrapsItsButtons()
    {
        m_fixture->windows->trusted = false;
        m_fixture->dependencies().accessibility().refresh();
        m_fixture->addPlacement(*m_work, u"mail"_qs);
        m_fixture->environment().visual.setFontFactor(1.5);
        m_fixture->environment().words.setLanguage(u"en-XA"_qs);
        m_fixture->window().resize(900 - 245, 620);

        const auto* banner = child<AccessibilityBanner>();
        const QList<PushButton*> buttons = banner->findChildren<PushButton*>();
        QTRY_VERIFY(buttons.last()->y() > buttons.first()->y());
        QTRY_COMPARE(clippedTexts(*banner).join(u'\n'), QString());
        for (const PushButton* button : buttons)
            QVERIFY(banner->contentsRect().contains(button->geometry()));
        QCOMPARE(child<ScrollArea>()->widget()->width(), m_view->width());
    }

    void missingResourcesAreMarked()
    {
        const QString path = m_fixture->folder.filePath(u"notes 1.txt"_qs);
        const QString url = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
        auto& item = m_fixture->addItem(*m_work, WorkspaceItemType::file, u"notes"_qs, url);
        addLink(u"file:///nowhere"_qs);
        QTRY_COMPARE(rows().size(), 2);
        QTRY_VERIFY(missingMark(*rows()[0])->isVisible());

        // Found again as soon as someone looks again.
        createFile(path);
        m_fixture->window().hide();
        m_fixture->window().show();
        QTRY_VERIFY(!missingMark(*rows()[0])->isVisible());

        item.setUrlString(u"no address: %"_qs);
        QTRY_VERIFY(missingMark(*rows()[0])->isVisible());
        item.setUrlString(url);
        QTRY_VERIFY(!missingMark(*rows()[0])->isVisible());
        QVERIFY(!missingMark(*rows()[1])->isVisible());
    }

    void aLongListIsFilledAndKept()
    {
        for (int i = 0; i < 300; ++i)
            m_work->appendItem(std::make_unique<WorkspaceItem>(
                WorkspaceItemValues{.typeRawValue = u"webLink"_qs,
                                    .displayName = u"link %1"_qs.arg(i),
                                    .sortOrder = i}));
        QTRY_COMPARE(rows().size(), 300);
        const QList<WorkspaceItemRow*> before = rows();
        m_work->sortedItems().last()->setDisplayName(u"the last"_qs);
        m_work->sortedItems().first()->setSortOrder(1000);
        QTRY_COMPARE(rows().last()->accessibleName(), u"link 0"_qs);
        QCOMPARE(rows()[298]->accessibleName(), u"the last"_qs);
        QCOMPARE(rows(), before);

        m_fixture->context().remove(*m_work->sortedItems().first());
        QTRY_COMPARE(rows().size(), 299);
        QTRY_COMPARE(rows().first()->accessibleName(), u"link 2"_qs);
        m_view->setWorkspace(&m_fixture->addWorkspace(u"Empty"_qs));
        QCOMPARE(rows().size(), 0);
    }

    void miniaturesStandWhereTheWindowsStood()
    {
        DisplayFingerprint wide{
            .localizedName = u"Wide"_qs, .pointWidth = 2000, .pointHeight = 1000};
        DisplayFingerprint flat{.localizedName = u"Flat"_qs, .pointWidth = 1, .pointHeight = 0};
        addPlacement(u"tiny"_qs, wide, {0, 0, 0.01, 0.01});
        addPlacement(u"elsewhere"_qs, flat, {0, 0, 1, 1});
        addPlacement(u"upper right"_qs, wide, {0.5, 0.75, 0.5, 0.25}).setIsEnabled(false);
        auto* preview = child<LayoutPreview>();
        QTRY_COMPARE(preview->findChildren<DisplayPreview*>().size(), 2);
        const auto displays = preview->findChildren<DisplayPreview*>();
        QCOMPARE(displays[0]->accessibleName(), u"Wide"_qs);
        QCOMPARE(displays[1]->accessibleName(), u"Flat"_qs);
        QTRY_COMPARE(displays[0]->width(), preview->width());
        QVERIFY(preview->width() >= 270 && preview->width() <= 400);

        // Without the margins beside the picture and the caption and gap above it.
        const double width = displays[0]->width() - 32;
        const double height = width / 2;
        const QPointF corner(16, displays[0]->height() - 14 - std::ceil(height));
        const auto frame = [&](const QString& name) {
            return find<WindowMiniature>(*preview, name)->frame().translated(-corner);
        };
        QCOMPARE(frame(u"tiny"_qs), QRectF(0, 0.99 * height, 20, 16));
        QCOMPARE(frame(u"upper right"_qs), QRectF(width / 2, 0, width / 2, height / 4));
        QCOMPARE(frame(u"elsewhere"_qs).size(), QSizeF(width, width / 1.2));

        auto* tiny =
            QAccessible::queryAccessibleInterface(find<WindowMiniature>(*preview, u"tiny"_qs));
        QCOMPARE(tiny->role(), QAccessible::Graphic);
        QCOMPARE(tiny->parent()->text(QAccessible::Name), u"Wide"_qs);
    }

    void longTextsAndOtherDirectionsFit_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("longer") << u"en-XA"_qs;
        QTest::newRow("right to left") << u"ar-XB"_qs;
    }

    void longTextsAndOtherDirectionsFit()
    {
        QFETCH(const QString, language);
        m_fixture->windows->trusted = false;
        m_fixture->addItem(*m_work, WorkspaceItemType::file, u"gone.txt"_qs);
        addLink(u"news.example"_qs).setIsEnabled(false);
        m_fixture->addPlacement(*m_work, u"mail"_qs);
        launch();
        m_view->setNotice(u"Work saved."_qs);
        child<LaunchReportBanner>()->findChild<PushButton*>()->click();
        // The smallest window with the widest of the usual sidebars.
        m_fixture->window().resize(900 - 245, 620);
        m_fixture->environment().words.setLanguage(language);

        const auto* content = child<ScrollArea>()->widget();
        QTRY_COMPARE(clippedTexts(*m_view), QStringList());
        QCOMPARE(content->width(), m_view->width());
        for (const auto* part : content->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            QVERIFY2(part->isHidden() || content->rect().contains(part->geometry()),
                     part->metaObject()->className());
        const QStringList data{u"Work"_qs, u"gone.txt"_qs, u"news.example"_qs, u"mail"_qs,
                               m_fixture->windows->displays.first().fingerprint.localizedName};
        // Selectable texts hold their mark-up; their accessible names are looked at.
        QCOMPARE(textsNotLookedUp(*m_view, data).filter(QRegularExpression(u"^(?!<p)"_qs)),
                 QStringList());
        const bool isMirrored = language == u"ar-XB";
        const auto* saveLayout = m_view->findChildren<ActionButton*>().first();
        QCOMPARE(saveLayout->geometry().center().x() > content->width() / 2,
                 isMirrored && saveLayout->width() < content->width() / 2);
    }

private:
    template <class Widget> Widget* child() { return m_view->findChild<Widget*>(); }
    ActionButton* start() { return m_view->findChildren<ActionButton*>().last(); }
    QList<WorkspaceItemRow*> rows() { return m_view->findChildren<WorkspaceItemRow*>(); }

    void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    WorkspaceItem& addLink(const QString& name)
    {
        return m_fixture->addItem(*m_work, WorkspaceItemType::webLink, name,
                                  u"https://news.example"_qs);
    }

    WindowPlacement& addPlacement(const QString& application, const DisplayFingerprint& display,
                                  const NormalizedFrame& frame)
    {
        const qint64 index = m_work->placementCount();
        return m_work->appendPlacement(
            std::make_unique<WindowPlacement>(application, application, std::nullopt, std::nullopt,
                                              std::nullopt, index, frame, QRectF(), display, true));
    }

    void addOpenWindow(const QString& application)
    {
        m_fixture->windows->addWindow(application, {.title = application + u" window"_qs});
        m_fixture->addPlacement(*m_work, application);
    }

    void launch()
    {
        QTRY_VERIFY(start()->isEnabled());
        click(start());
        waitForLaunch();
    }

    void waitForLaunch()
    {
        const WorkspaceLauncher& launcher = m_fixture->dependencies().launcher();
        const auto isDone = [&] {
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
