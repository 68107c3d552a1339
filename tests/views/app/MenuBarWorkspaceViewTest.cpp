// The tray menu: what its actions say, in which order, and what they do.
#include "views/app/MenuBarWorkspaceView.h"
#include "model/WorkspaceChoices.h"
#include "views/support/ViewFixture.h"

using namespace trovell;
using namespace trovell::test;

namespace {

QStringList textsOf(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts += action->isSeparator() ? u"-"_qs : action->text();
    return texts;
}

const QStringList commands{u"-"_qs, u"Open Trovell"_qs, u"Check for Updates…"_qs, u"Settings…"_qs,
                           u"-"_qs, u"Quit Trovell"_qs};

} // namespace

class MenuBarWorkspaceViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_view = std::make_unique<MenuBarWorkspaceView>(m_fixture->environment());
    }
    void cleanup()
    {
        m_view.reset();
        m_fixture.reset();
    }

    void saysSoWhenThereIsNothing();
    void listsTheWorkspacesInTheirOrder();
    void isCurrentWhenItIsShown();
    void isNotMadeAnewWithoutNeed();
    void startsWhatIsChosen();
    void commandsAsk();
    void changesLanguage();

private:
    [[nodiscard]] QMenu& menu() { return *m_view->menu(); }
    [[nodiscard]] QAction* action(const QString& text)
    {
        for (QAction* found : menu().actions())
            if (found->text() == text)
                return found;
        qFatal("no action reads %s", qPrintable(text));
    }

    std::unique_ptr<ViewFixture> m_fixture;
    std::unique_ptr<MenuBarWorkspaceView> m_view;
};

void MenuBarWorkspaceViewTest::saysSoWhenThereIsNothing()
{
    QCOMPARE(textsOf(menu()), QStringList{u"No workspaces yet"_qs} + commands);
    QVERIFY(!menu().actions().first()->isEnabled());
}

void MenuBarWorkspaceViewTest::listsTheWorkspacesInTheirOrder()
{
    TrovellWorkspace& writing = m_fixture->addWorkspace(u"Writing"_qs);
    TrovellWorkspace& review = m_fixture->addWorkspace(u"R&D\tand more"_qs);
    writing.setShortcut(shortcuts().at(2));
    QTRY_COMPARE(textsOf(menu()),
                 (QStringList{u"Writing\tCtrl+Alt+2"_qs, u"R&&D and more"_qs} + commands));
    review.setSortOrder(-1);
    QTRY_COMPARE(textsOf(menu()).first(), u"R&&D and more"_qs);
    // The symbol is there for whoever draws the menu, at any size.
    const QImage symbol = menu().actions().first()->icon().pixmap(22).toImage();
    QCOMPARE(symbol.size(), QSize(22, 22));
    QCOMPARE(qAlpha(symbol.pixel(0, 0)), 0);
    bool isDrawn = false;
    for (int x = 0; x < symbol.width(); ++x)
        isDrawn |= qAlpha(symbol.pixel(x, symbol.height() / 2)) > 0;
    QVERIFY(isDrawn);
}

void MenuBarWorkspaceViewTest::isCurrentWhenItIsShown()
{
    TrovellWorkspace& workspace = m_fixture->addWorkspace(u"Before"_qs);
    QTRY_COMPARE(textsOf(menu()).first(), u"Before"_qs);
    workspace.setName(u"After"_qs);
    Q_EMIT menu().aboutToShow();
    QCOMPARE(textsOf(menu()).first(), u"After"_qs);
}

void MenuBarWorkspaceViewTest::isNotMadeAnewWithoutNeed()
{
    TrovellWorkspace& workspace = m_fixture->addWorkspace(u"Work"_qs);
    QTRY_COMPARE(textsOf(menu()).first(), u"Work"_qs);
    const QPointer<QAction> shown = menu().actions().first();
    workspace.setUpdatedAt(QDateTime::currentDateTimeUtc().addSecs(60));
    QCoreApplication::processEvents();
    Q_EMIT menu().aboutToShow();
    QVERIFY(shown);
}

void MenuBarWorkspaceViewTest::startsWhatIsChosen()
{
    TrovellWorkspace& workspace = m_fixture->addWorkspace(u"Work"_qs);
    m_fixture->addItem(workspace, WorkspaceItemType::webLink, u"Page"_qs,
                       u"https://page.example/"_qs);
    QTRY_COMPARE(textsOf(menu()).first(), u"Work"_qs);
    menu().actions().first()->trigger();
    QTRY_COMPARE(m_fixture->resources->openedResources(),
                 QList<QUrl>{QUrl(u"https://page.example/"_qs)});

    // Deleted while the menu was open: nothing happens.
    QAction* stale = menu().actions().first();
    m_fixture->context().remove(workspace);
    stale->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(m_fixture->resources->openedResources().size(), 1);
}

void MenuBarWorkspaceViewTest::commandsAsk()
{
    QSignalSpy opens(m_view.get(), &MenuBarWorkspaceView::openMainWindowRequested);
    QSignalSpy settings(m_view.get(), &MenuBarWorkspaceView::settingsRequested);
    QSignalSpy quits(m_view.get(), &MenuBarWorkspaceView::quitRequested);
    action(u"Open Trovell"_qs)->trigger();
    action(u"Settings…"_qs)->trigger();
    action(u"Quit Trovell"_qs)->trigger();
    QCOMPARE((QList{opens.size(), settings.size(), quits.size()}), (QList<qsizetype>{1, 1, 1}));
    QVERIFY(!action(u"Check for Updates…"_qs)->isEnabled());

    AppConfiguration configuration = appConfiguration();
    configuration.sparkleAppcastURL = QUrl(u"https://updates.example/feed.xml"_qs);
    configuration.sparklePublicKey = u"no key at all"_qs;
    m_view.reset();
    m_fixture = std::make_unique<ViewFixture>(configuration);
    m_view = std::make_unique<MenuBarWorkspaceView>(m_fixture->environment());
    QSignalSpy checks(m_fixture->dependencies().updateController().controller(),
                      &Updater::checkRequested);
    action(u"Check for Updates…"_qs)->trigger();
    QCOMPARE(checks.size(), 1);
}

void MenuBarWorkspaceViewTest::changesLanguage()
{
    m_fixture->addWorkspace(u"Work"_qs);
    m_fixture->environment().words.setLanguage(u"en-XA"_qs);
    QStringList texts = textsOf(menu());
    QCOMPARE(texts.takeFirst(), u"Work"_qs);
    for (const QString& text : texts)
        QVERIFY2(text == u"-"_qs || text.startsWith(u'⟦'), qPrintable(text));
}

QTEST_MAIN(MenuBarWorkspaceViewTest)
#include "MenuBarWorkspaceViewTest.moc"
