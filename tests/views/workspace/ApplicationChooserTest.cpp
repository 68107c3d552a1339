#include "views/workspace/ApplicationChooser.h"

#include "views/style/PushButton.h"
#include "views/support/ViewFixture.h"
#include "views/workspace/ApplicationList.h"

using namespace trovell;
using trovell::test::ViewFixture;

class ApplicationChooserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void choosesByTyping();
    void choosesSeveralInTheOrderOfTheList();
};

namespace {

struct OpenChooser {
    OpenChooser(ViewFixture& fixture, bool allowsMultiple)
    {
        for (const QString& name : {u"Terminal"_qs, u"calculator"_qs, u"Text Editor"_qs})
            fixture.resources->addApplication(name, urlOf(name));
        fixture.window().show();
        openApplicationChooser(fixture.environment(),
                               {WorkspaceItemType::application, allowsMultiple}, &fixture.window(),
                               [this](const QList<QUrl>& urls) { chosen.append(urls); });
        view = fixture.window().findChild<ApplicationChooser*>();
    }

    static QUrl urlOf(const QString& name)
    {
        return QUrl::fromLocalFile(u"/applications/"_qs + name + u".desktop"_qs);
    }

    QAbstractItemModel& rows() const { return *view->findChild<ApplicationList*>()->model(); }

    QPointer<ApplicationChooser> view;
    QList<QList<QUrl>> chosen;
};

} // namespace

void ApplicationChooserTest::choosesByTyping()
{
    ViewFixture fixture;
    const OpenChooser chooser(fixture, false);
    QTRY_COMPARE(chooser.rows().rowCount(), 3);
    auto* search = chooser.view->findChild<QLineEdit*>();
    QTest::keyClick(search, Qt::Key_Return);
    QTest::keyClicks(search, u"nothing like it"_qs);
    QTest::keyClick(search, Qt::Key_Return);
    QVERIFY(chooser.chosen.isEmpty());
    search->clear();
    QTest::keyClicks(search, u"EDIT"_qs);
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(chooser.chosen.value(0), QList({OpenChooser::urlOf(u"Text Editor"_qs)}));
    QTRY_VERIFY(!chooser.view);
}

void ApplicationChooserTest::choosesSeveralInTheOrderOfTheList()
{
    ViewFixture fixture;
    const OpenChooser chooser(fixture, true);
    QTRY_COMPARE(chooser.rows().rowCount(), 3);
    auto* list = chooser.view->findChild<ApplicationList*>();
    for (const int row : {2, 0}) {
        const QRect place = list->visualRect(chooser.rows().index(row, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, place.center());
    }
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(chooser.chosen.value(0),
             QList({OpenChooser::urlOf(u"calculator"_qs), OpenChooser::urlOf(u"Text Editor"_qs)}));
}

QTEST_MAIN(ApplicationChooserTest)
#include "ApplicationChooserTest.moc"
