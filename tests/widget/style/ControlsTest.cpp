// SPDX-License-Identifier: MIT

#include "Stage.h"

#include "views/style/ChoiceRow.h"
#include "views/style/Menus.h"
#include "views/style/Picker.h"
#include "views/style/PushButton.h"

#include <QMenu>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

QMenu* openMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QRect panelOf(const QMenu& menu)
{
    return menuPanel(menu).translated(menu.pos());
}

/// A page that scrolls below the pointer changes nothing.
bool ignoresTheWheel(QWidget* control)
{
    QWheelEvent wheel({5, 5}, control->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(control, &wheel);
    return !wheel.isAccepted();
}

} // namespace

class ControlsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }

    void aRowIsOneTabStopWithArrows()
    {
        Stage stage;
        auto* before = stage.add(new PushButton(m_visual, u"Before"_s));
        auto* row = stage.add(new ChoiceRow(m_visual, ChoiceRow::Look::symbol, u"Icon"_s, m_names));
        auto* after = stage.add(new PushButton(m_visual, u"After"_s));
        row->setSelected(u"terminal"_s);
        stage.open();
        before->setFocus();
        const auto isReachedBy = [](Qt::Key key, const QWidget* widget) {
            QTest::keyClick(QApplication::focusWidget(), key);
            return widget->hasFocus();
        };
        const auto choices = row->findChildren<QRadioButton*>();
        QVERIFY(isReachedBy(Qt::Key_Tab, choices[2]));
        QVERIFY(isReachedBy(Qt::Key_Right, choices[0]));
        QVERIFY(isReachedBy(Qt::Key_Left, choices[2]));
        QVERIFY(isReachedBy(Qt::Key_Left, choices[1]));
        QCOMPARE(row->selected(), u"terminal"_s);
        QVERIFY(isReachedBy(Qt::Key_Tab, after));
        QVERIFY(isReachedBy(Qt::Key_Backtab, choices[1]));
        stage.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(isReachedBy(Qt::Key_Left, choices[2]));
        QVERIFY(isReachedBy(Qt::Key_Backtab, before));

        QSignalSpy chosen(row, &ChoiceRow::chosen);
        choices[0]->setFocus();
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(choices[0], Qt::Key_Space);
        QCOMPARE(row->selected(), u"book"_s);
        QTest::mouseClick(choices[1], Qt::LeftButton);
        QCOMPARE(row->selected(), u"hammer"_s);
        QCOMPARE(chosen.size(), 2);
    }

    void pickerChoosesByKeys()
    {
        Stage stage;
        auto* picker = stage.add(new Picker(m_visual, u"Shortcut"_s, 180));
        picker->addItems({u"None"_s, u"Ctrl+Alt+1"_s, u"Ctrl+Alt+2"_s});
        stage.open();
        QSignalSpy activated(picker, &QComboBox::activated);
        picker->setFocus();
        for (const auto& [end, chosen] : {std::pair{Qt::Key_Escape, 0}, {Qt::Key_Return, 2}}) {
            QTest::keyClick(picker, Qt::Key_Space);
            QVERIFY(openMenu()->actions()[0]->isChecked());
            for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, end})
                QTest::keyClick(openMenu(), key);
            QVERIFY(!openMenu() && picker->hasFocus());
            QCOMPARE(picker->currentIndex(), chosen);
        }
        QCOMPARE(activated.size(), 1);
        QVERIFY(ignoresTheWheel(picker));
        QCOMPARE(picker->currentIndex(), 2);
    }

    void menuOfAButtonOpensBelowAndSkipsWhatCannotBeChosen()
    {
        Stage stage;
        auto* button = stage.add(new PushButton(m_visual, u"More"_s));
        QMenu menu;
        menu.addAction(u"A much longer entry than the button"_s);
        menu.addAction(u"Clear"_s)->setEnabled(false);
        menu.addSeparator();
        QAction* remove = menu.addAction(u"Delete"_s);
        button->setMenu(&menu, Qt::AlignRight);
        stage.move(200, 100);
        stage.open();
        button->setFocus();
        QSignalSpy triggered(remove, &QAction::triggered);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            QTest::keyClick(button, key);
            QCOMPARE(openMenu(), &menu);
            const QRect box(button->mapToGlobal(QPoint()), button->size());
            QCOMPARE(panelOf(menu).topRight(), box.bottomRight() + QPoint(0, 5));
            QTest::keyClick(&menu, Qt::Key_Down);
            QTest::keyClick(&menu, Qt::Key_Down);
            QTest::keyClick(&menu, Qt::Key_Return);
            QVERIFY(!openMenu() && !button->isDown());
        }
        QCOMPARE(triggered.size(), 2);
    }

    void menuStaysOnTheScreen()
    {
        QMenu menu;
        for (int i = 0; i < 6; ++i)
            menu.addAction(u"Entry %1"_s.arg(i));
        const QRect screen = menu.screen()->availableGeometry();
        openMenu(menu, screen.bottomRight() - QPoint(4, 4));
        QVERIFY(screen.contains(panelOf(menu)));
        menu.close();
    }

    void returnAndSpacePress()
    {
        Stage stage;
        const QList<QAbstractButton*> buttons{
            stage.add(new PushButton(m_visual, u"Save"_s)),
            stage.add(new LinkButton(m_visual, u"Locate Again"_s)),
            stage.add(new SymbolButton(m_visual, u"trash"_s, u"Remove"_s)),
            stage.add(new ActionButton(m_visual, u"play.fill"_s, u"Start"_s, u"Opens"_s))};
        stage.open();
        for (QAbstractButton* button : buttons) {
            QSignalSpy clicked(button, &QAbstractButton::clicked);
            stage.setFocus();
            QTest::mouseClick(button, Qt::LeftButton);
            // A click does what it should and leaves the focus alone.
            QVERIFY(!button->hasFocus());
            button->setFocus();
            for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
                QTest::keyClick(button, key);
            QCOMPARE(clicked.size(), 4);
        }
    }

    void aSliderGoesWhereItIsPressed()
    {
        Stage stage;
        auto* slider = stage.add(new QSlider(Qt::Horizontal));
        slider->setRange(8, 12);
        slider->setValue(10);
        stage.open();
        const auto pressedAt = [&](int x) {
            QTest::mouseClick(slider, Qt::LeftButton, {}, {x, slider->height() / 2});
            return slider->value();
        };
        QCOMPARE(pressedAt(slider->width() - 3), 12);
        QCOMPARE(pressedAt(slider->width() / 2 + 3), 10);
        stage.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(pressedAt(slider->width() - 3), 8);
        QVERIFY(ignoresTheWheel(slider));
        QCOMPARE(slider->value(), 8);
    }

private:
    const StillStyle m_visual;
    const QStringList m_names{u"book"_s, u"hammer"_s, u"terminal"_s};
};

QTEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
