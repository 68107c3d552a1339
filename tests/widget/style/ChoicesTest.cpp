#include "Stage.h"

#include "views/style/ChoiceRow.h"
#include "views/style/Picker.h"
#include "views/style/PopupMenu.h"
#include "views/style/PushButton.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <memory>

using namespace trovell;

namespace {

PopupMenu* openMenu()
{
    return qobject_cast<PopupMenu*>(QApplication::activePopupWidget());
}

QRect panelOf(const PopupMenu& menu)
{
    return menu.geometry().marginsRemoved(menu.contentsMargins());
}

} // namespace

class ChoicesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_visual = std::make_unique<StillStyle>(); }
    void cleanup()
    {
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }

    void arrowsMoveAndSpaceSelects();
    void rowIsOneTabStop();
    void pickerChoosesByKeys();
    void menuOfAButtonOpensBelow();
    void menuSkipsWhatCannotBeChosen();
    void menuStaysOnTheScreen();

private:
    std::unique_ptr<StillStyle> m_visual;
    const QStringList m_names{u"book"_qs, u"hammer"_qs, u"terminal"_qs};
};

void ChoicesTest::arrowsMoveAndSpaceSelects()
{
    Stage stage;
    auto* row = stage.add(new IconChoiceRow(*m_visual, u"Icon"_qs, m_names));
    row->setSelected(u"hammer"_qs);
    stage.open();
    QSignalSpy chosen(row, &ChoiceRow::chosen);
    row->buttons()[1]->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QVERIFY(row->buttons()[2]->hasFocus());
    QCOMPARE(row->selected(), u"hammer"_qs);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QVERIFY(row->buttons()[0]->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(row->selected(), u"book"_qs);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(row->selected(), u"book"_qs);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QVERIFY(row->buttons()[2]->hasFocus());
    QTest::mouseClick(row->buttons()[1], Qt::LeftButton);
    QCOMPARE(row->selected(), u"hammer"_qs);
    QCOMPARE(chosen.size(), 2);
    QCOMPARE(chosen[1][0].toString(), u"hammer"_qs);
}

void ChoicesTest::rowIsOneTabStop()
{
    Stage stage;
    auto* before = stage.add(new PushButton(*m_visual, u"Before"_qs));
    auto* row = stage.add(new IconChoiceRow(*m_visual, u"Icon"_qs, m_names));
    auto* after = stage.add(new PushButton(*m_visual, u"After"_qs));
    row->setSelected(u"terminal"_qs);
    stage.open();
    before->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(row->buttons()[2]->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(after->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QVERIFY(row->buttons()[1]->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QVERIFY(before->hasFocus());
    stage.setLayoutDirection(Qt::RightToLeft);
    row->buttons()[0]->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QVERIFY(row->buttons()[1]->hasFocus());
}

void ChoicesTest::pickerChoosesByKeys()
{
    Stage stage;
    auto* picker = stage.add(new Picker(*m_visual, u"Shortcut"_qs, 180));
    picker->addItems({u"None"_qs, u"Ctrl+Alt+1"_qs, u"Ctrl+Alt+2"_qs});
    stage.open();
    QSignalSpy activated(picker, &QComboBox::activated);
    picker->setFocus();
    picker->showPopup();
    QTest::keyClick(openMenu(), Qt::Key_Down);
    QTest::keyClick(openMenu(), Qt::Key_Escape);
    QVERIFY(!openMenu());
    QCOMPARE(picker->currentIndex(), 0);
    QTest::keyClick(picker, Qt::Key_Space);
    QVERIFY(openMenu());
    QVERIFY(openMenu()->actions()[0]->isChecked());
    QTest::keyClick(openMenu(), Qt::Key_Down);
    QTest::keyClick(openMenu(), Qt::Key_Down);
    QTest::keyClick(openMenu(), Qt::Key_Return);
    QVERIFY(!openMenu());
    QCOMPARE(picker->currentIndex(), 2);
    QCOMPARE(activated.size(), 1);
    QVERIFY(picker->hasFocus());
    QTest::keyClick(picker, Qt::Key_Up);
    QCOMPARE(picker->currentText(), u"Ctrl+Alt+1"_qs);
    QWheelEvent wheel({5, 5}, picker->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(picker, &wheel);
    QCOMPARE(picker->currentIndex(), 1);
}

void ChoicesTest::menuOfAButtonOpensBelow()
{
    Stage stage;
    auto* button = stage.add(new PushButton(*m_visual, u"Add Item"_qs, PushButton::Kind::bordered,
                                            PushButton::Scale::small));
    PopupMenu menu(*m_visual);
    QAction* folder = menu.addAction(u"Folder"_qs);
    menu.addAction(u"A much longer entry than the button"_qs);
    button->setMenu(&menu, Qt::AlignRight);
    stage.move(200, 100);
    stage.open();
    button->setFocus();
    QSignalSpy triggered(folder, &QAction::triggered);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(button, key);
        QCOMPARE(openMenu(), &menu);
        const QRect panel = panelOf(menu);
        const QRect box(button->mapToGlobal(QPoint()), button->size());
        QCOMPARE(panel.y(), box.y() + box.height() + 4);
        QCOMPARE(panel.x() + panel.width(), box.x() + box.width());
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
        QVERIFY(!openMenu());
        QVERIFY(!button->isDown());
    }
    QCOMPARE(triggered.size(), 2);
}

void ChoicesTest::menuSkipsWhatCannotBeChosen()
{
    PopupMenu menu(*m_visual);
    menu.addAction(u"Edit"_qs);
    menu.addAction(u"Clear"_qs)->setEnabled(false);
    menu.addSeparator();
    QAction* remove = menu.addDestructiveAction(u"Delete"_qs);
    QSignalSpy triggered(remove, &QAction::triggered);
    menu.openAt({200, 200});
    QCOMPARE(panelOf(menu).topLeft(), QPoint(200, 200));
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Down);
    QCOMPARE(menu.activeAction(), remove);
    // The current destructive row has its own colour.
    const QRect row = menu.actionGeometry(remove);
    QCOMPARE(shownColor(menu, row.topLeft() + QPoint(5, 14)),
             m_visual->color(ColorToken::destructiveFill));
    QTest::keyClick(&menu, Qt::Key_Return);
    QCOMPARE(triggered.size(), 1);
    QVERIFY(!openMenu());
}

void ChoicesTest::menuStaysOnTheScreen()
{
    PopupMenu menu(*m_visual);
    for (int i = 0; i < 6; ++i)
        menu.addAction(u"Entry %1"_qs.arg(i));
    const QRect screen = menu.screen()->availableGeometry();
    menu.openAt(screen.bottomRight() - QPoint(4, 4));
    QVERIFY(screen.contains(panelOf(menu)));
    QCOMPARE(panelOf(menu).right(), screen.right());
    menu.close();
}

QTEST_MAIN(ChoicesTest)
#include "ChoicesTest.moc"
