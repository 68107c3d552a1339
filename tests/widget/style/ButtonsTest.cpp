#include "Stage.h"

#include "views/style/ActionButton.h"
#include "views/style/CheckBox.h"
#include "views/style/LinkButton.h"
#include "views/style/ProgressRing.h"
#include "views/style/PushButton.h"
#include "views/style/Slider.h"
#include "views/style/SymbolButton.h"
#include "views/style/TextLabel.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace trovell;

class ButtonsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void returnAndSpacePress()
    {
        Stage stage;
        const QList<QAbstractButton*> buttons{
            stage.add(new PushButton(m_visual, u"Save"_qs)),
            stage.add(new LinkButton(m_visual, u"Locate Again"_qs)),
            stage.add(new SymbolButton(m_visual, u"trash"_qs, u"Remove"_qs)),
            stage.add(new ActionButton(m_visual, u"play.fill"_qs, u"Start"_qs, u"Opens"_qs))};
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

    void clicksOnALabelTick()
    {
        Stage stage;
        auto* box = stage.add(new CheckBox(m_visual, u"Add as launch item"_qs));
        auto* label = stage.add(new TextLabel(m_visual, u"Text Editor"_qs));
        forwardClicks(*label, *box);
        stage.open();
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY(box->isChecked());
        // Leaving the label before the release is no click.
        QTest::mousePress(label, Qt::LeftButton);
        QTest::mouseRelease(label, Qt::LeftButton, {}, {-5, -5});
        QVERIFY(box->isChecked());
        QTest::mouseClick(box, Qt::LeftButton, {}, {box->width() - 4, 9});
        QVERIFY(!box->isChecked());
        box->setEnabled(false);
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY(!box->isChecked());
    }

    void sliderSteps()
    {
        Stage stage;
        auto* slider = stage.add(new Slider(m_visual, u"Timeout"_qs, 8, 12, u"8s"_qs, u"12s"_qs));
        slider->setValue(10);
        stage.open();
        const auto valueAfter = [slider](Qt::Key key) {
            QTest::keyClick(slider, key);
            return slider->value();
        };
        QCOMPARE(valueAfter(Qt::Key_Right), 11);
        QCOMPARE(valueAfter(Qt::Key_Down), 10);
        QCOMPARE(valueAfter(Qt::Key_Left), 9);
        stage.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(slider->positionOf(12) < slider->positionOf(8));
        QCOMPARE(valueAfter(Qt::Key_Left), 10);
        QCOMPARE(valueAfter(Qt::Key_End), 12);
        QCOMPARE(valueAfter(Qt::Key_Left), 12);
        // A page that scrolls below the pointer changes nothing.
        QWheelEvent wheel({5, 5}, slider->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(slider, &wheel);
        QCOMPARE(slider->value(), 12);
    }

    void ringTurnsOnlyWhileSeen()
    {
        VisualStyle moving;
        ProgressRing ring(moving, u"Reading windows"_qs);
        QVERIFY(!ring.isTurning());
        ring.show();
        QVERIFY(ring.isTurning());
        ring.hide();
        QVERIFY(!ring.isTurning());
        moving.setAnimationReduced(true);
        ring.show();
        QVERIFY(!ring.isTurning());
    }

private:
    const StillStyle m_visual;
};

QTEST_MAIN(ButtonsTest)
#include "ButtonsTest.moc"
