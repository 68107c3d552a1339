// SPDX-License-Identifier: MIT
//
// The tray menu: what its actions say, in which order, and what they do.
#include "views/app/MenuBarWorkspaceView.h"
#include "model/WorkspaceChoices.h"
#include "support/Patience.h"
#include "views/support/ViewFixture.h"

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;

namespace {

const QStringList commands{u"-"_s, u"Open Trovell"_s, u"Check for Updates…"_s, u"Settings…"_s,
                           u"-"_s, u"Quit Trovell"_s};

} // namespace

class MenuBarWorkspaceViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_view = std::make_unique<MenuBarWorkspaceView>(m_fixture->menuBar());
    }
    void cleanup()
    {
        m_view.reset();
        m_fixture.reset();
    }

    void listsTheWorkspacesInTheirOrder()
    {
        QCOMPARE(texts(), QStringList{u"No workspaces yet"_s} + commands);
        QVERIFY(!menu().actions().first()->isEnabled());
        TrovellWorkspace& writing = m_fixture->addWorkspace(u"Writing"_s);
        TrovellWorkspace& review = m_fixture->addWorkspace(u"R&D\tand more"_s);
        writing.setShortcut(shortcuts().at(2));
        QTRY_COMPARE(texts(),
                     (QStringList{u"Writing\tCtrl+Alt+2"_s, u"R&&D and more"_s} + commands));
        QVERIFY(!menu().actions().first()->icon().isNull());
        review.setSortOrder(-1);
        QTRY_COMPARE(texts().first(), u"R&&D and more"_s);
    }

    void isCurrentWhenItIsShown()
    {
        TrovellWorkspace& workspace = m_fixture->addWorkspace(u"Before"_s);
        QTRY_COMPARE(texts().first(), u"Before"_s);
        workspace.setName(u"After"_s);
        Q_EMIT menu().aboutToShow();
        QCOMPARE(texts().first(), u"After"_s);
        // It is not made anew without need: the desktop may hold its actions.
        const QPointer<QAction> shown = menu().actions().first();
        workspace.setUpdatedAt(QDateTime::currentDateTimeUtc().addSecs(60));
        QCoreApplication::processEvents();
        QVERIFY(shown);
    }

    void startsWhatIsChosen()
    {
        TrovellWorkspace& workspace = m_fixture->addWorkspace(u"Work"_s);
        const QUrl page(u"https://page.example/"_s);
        m_fixture->addItem(workspace, WorkspaceItemType::webLink, u"Page"_s, page.toString());
        QTRY_COMPARE(texts().first(), u"Work"_s);
        menu().actions().first()->trigger();
        QTRY_COMPARE(m_fixture->resources->openedResources(), QList<QUrl>{page});

        // Deleted while the menu was open: nothing happens.
        QAction* stale = menu().actions().first();
        m_fixture->context().remove(workspace);
        stale->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(m_fixture->resources->openedResources().size(), 1);
    }

    void changesLanguage()
    {
        m_fixture->addWorkspace(u"Work"_s);
        m_fixture->environment().words.setLanguage(u"en-XA"_s);
        QCOMPARE(texts().first(), u"Work"_s);
        for (const QString& text : texts().sliced(1))
            QVERIFY2(text == u"-"_s || text.startsWith(u'⟦'), qPrintable(text));
    }

private:
    [[nodiscard]] QMenu& menu() { return *m_view->menu(); }
    [[nodiscard]] QStringList texts()
    {
        QStringList texts;
        for (const QAction* action : menu().actions())
            texts += action->isSeparator() ? u"-"_s : action->text();
        return texts;
    }

    std::unique_ptr<ViewFixture> m_fixture;
    std::unique_ptr<MenuBarWorkspaceView> m_view;
};

QTEST_MAIN(MenuBarWorkspaceViewTest)
#include "MenuBarWorkspaceViewTest.moc"
