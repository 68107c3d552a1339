#include "views/workspace/ApplicationChooser.h"

#include "views/support/ViewFixture.h"
#include "views/workspace/ApplicationList.h"

using namespace trovell;
using trovell::test::ViewFixture;

namespace {

QUrl urlOf(const QString& name)
{
    return QUrl::fromLocalFile(u"/applications/"_qs + name + u".desktop"_qs);
}

} // namespace

class ApplicationChooserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void choosesByTyping()
    {
        open(false);
        auto* search = m_view->findChild<QLineEdit*>();
        QTest::keyClick(search, Qt::Key_Return);
        QTest::keyClicks(search, u"nothing like it"_qs);
        QTest::keyClick(search, Qt::Key_Return);
        QVERIFY(m_chosen.isEmpty());
        search->clear();
        QTest::keyClicks(search, u"EDIT"_qs);
        QTest::keyClick(search, Qt::Key_Return);
        QCOMPARE(m_chosen, QList({urlOf(u"Text Editor"_qs)}));
        QTRY_VERIFY(!m_view);
    }

    void choosesSeveralInTheOrderOfTheList()
    {
        open(true);
        auto* list = m_view->findChild<ApplicationList*>();
        for (const int row : {2, 0}) {
            const QRect place = list->visualRect(list->model()->index(row, 0));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              place.center());
        }
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(m_chosen, QList({urlOf(u"calculator"_qs), urlOf(u"Text Editor"_qs)}));
    }

private:
    void open(bool allowsMultiple)
    {
        m_fixture = std::make_unique<ViewFixture>();
        m_chosen.clear();
        for (const QString& name : {u"Terminal"_qs, u"calculator"_qs, u"Text Editor"_qs})
            m_fixture->resources->addApplication(name, urlOf(name));
        QMainWindow& window = m_fixture->window();
        window.show();
        openApplicationChooser(m_fixture->environment(),
                               {WorkspaceItemType::application, allowsMultiple}, &window,
                               [this](const QList<QUrl>& urls) { m_chosen = urls; });
        m_view = window.findChild<ApplicationChooser*>();
        QTRY_COMPARE(m_view->findChild<ApplicationList*>()->model()->rowCount(), 3);
    }

    std::unique_ptr<ViewFixture> m_fixture;
    QPointer<ApplicationChooser> m_view;
    QList<QUrl> m_chosen;
};

QTEST_MAIN(ApplicationChooserTest)
#include "ApplicationChooserTest.moc"
