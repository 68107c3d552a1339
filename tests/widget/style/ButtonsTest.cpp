#include "Stage.h"

#include "views/style/ActionButton.h"
#include "views/style/CheckBox.h"
#include "views/style/LinkButton.h"
#include "views/style/Picker.h"
#include "views/style/PopupMenu.h"
#include "views/style/ProgressRing.h"
#include "views/style/PushButton.h"
#include "views/style/Slider.h"
#include "views/style/Switch.h"
#include "views/style/SymbolButton.h"
#include "views/style/TextLabel.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <memory>

using namespace trovell;

class ButtonsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_visual = std::make_unique<StillStyle>(); }

    void returnAndSpacePress();
    void hoverShowsAndEndsWithDisabling();
    void switchTogglesEverywhereInItsRow();
    void clicksOnALabelTick();
    void sliderSteps();
    void sliderFollowsThePress();
    void ringTurnsOnlyWhileSeen();

private:
    std::unique_ptr<StillStyle> m_visual;
};

void ButtonsTest::returnAndSpacePress()
{
    Stage stage;
    const QList<QAbstractButton*> buttons{
        stage.add(new PushButton(*m_visual, u"Save"_qs)),
        stage.add(new LinkButton(*m_visual, u"Locate Again"_qs)),
        stage.add(new SymbolButton(*m_visual, u"trash"_qs, u"Remove"_qs)),
        stage.add(new ActionButton(*m_visual, u"play.fill"_qs, u"Start"_qs, u"Opens"_qs))};
    stage.open();
    for (QAbstractButton* button : buttons) {
        QSignalSpy clicked(button, &QAbstractButton::clicked);
        stage.setFocus();
        QTest::mouseClick(button, Qt::LeftButton);
        // A click does what it should and leaves the focus alone.
        QVERIFY(!button->hasFocus());
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        QTest::keyClick(button, Qt::Key_Return);
        QTest::keyClick(button, Qt::Key_Enter);
        QCOMPARE(clicked.size(), 4);
    }
}

void ButtonsTest::hoverShowsAndEndsWithDisabling()
{
    Stage stage;
    auto* button = stage.add(new PushButton(*m_visual, u"Cancel"_qs));
    stage.open();
    const auto fill = [&] { return shownColor(*button, {8, 16}); };
    QCOMPARE(fill(), m_visual->color(ColorToken::controlBackground));
    QEnterEvent enter({}, {}, {});
    QApplication::sendEvent(button, &enter);
    QCOMPARE(fill(), m_visual->color(ColorToken::controlHover));
    QTest::mousePress(button, Qt::LeftButton);
    QCOMPARE(fill(), m_visual->color(ColorToken::controlPressed));
    QTest::mouseRelease(button, Qt::LeftButton);
    button->setEnabled(false);
    QCOMPARE(fill(), m_visual->color(ColorToken::controlDisabled));
    button->setAttribute(Qt::WA_UnderMouse, false);
    button->setEnabled(true);
    QCOMPARE(fill(), m_visual->color(ColorToken::controlBackground));
}

void ButtonsTest::switchTogglesEverywhereInItsRow()
{
    Stage stage;
    auto* toggle = stage.add(new Switch(*m_visual, u"Show menu bar icon"_qs));
    stage.open();
    QSignalSpy toggled(toggle, &QAbstractButton::toggled);
    QTest::mouseClick(toggle, Qt::LeftButton, {}, {10, toggle->height() / 2});
    QVERIFY(toggle->isChecked());
    const QPoint track(toggle->width() - 10, toggle->height() / 2);
    QCOMPARE(shownColor(*toggle, {toggle->width() - 34, track.y()}),
             m_visual->color(ColorToken::action));
    QTest::mouseClick(toggle, Qt::LeftButton, {}, track);
    QVERIFY(!toggle->isChecked());
    toggle->setFocus();
    QTest::keyClick(toggle, Qt::Key_Space);
    QVERIFY(toggle->isChecked());
    QCOMPARE(toggled.size(), 3);
    toggle->setEnabled(false);
    QTest::mouseClick(toggle, Qt::LeftButton, {}, track);
    QVERIFY(toggle->isChecked());
}

void ButtonsTest::clicksOnALabelTick()
{
    Stage stage;
    auto* box = stage.add(new CheckBox(*m_visual, {}));
    auto* label = stage.add(new TextLabel(*m_visual, u"Text Editor"_qs));
    auto* labelled = stage.add(new CheckBox(*m_visual, u"Add as launch item"_qs));
    forwardClicks(*label, *box);
    stage.open();
    QTest::mouseClick(label, Qt::LeftButton);
    QVERIFY(box->isChecked());
    // Leaving the label before the release is no click.
    QTest::mousePress(label, Qt::LeftButton);
    QTest::mouseRelease(label, Qt::LeftButton, {}, {-5, -5});
    QVERIFY(box->isChecked());
    box->setEnabled(false);
    QTest::mouseClick(label, Qt::LeftButton);
    QVERIFY(box->isChecked());
    QTest::mouseClick(labelled, Qt::LeftButton, {}, {labelled->width() - 4, 9});
    QVERIFY(labelled->isChecked());
}

void ButtonsTest::sliderSteps()
{
    Stage stage;
    auto* slider = stage.add(new Slider(*m_visual, u"Timeout"_qs, 8, 12, u"8s"_qs, u"12s"_qs));
    slider->setValue(10);
    stage.open();
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(slider->value(), 11);
    QTest::keyClick(slider, Qt::Key_Down);
    QCOMPARE(slider->value(), 10);
    QTest::keyClick(slider, Qt::Key_Left);
    QCOMPARE(slider->value(), 9);
    stage.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(slider->positionOf(12) < slider->positionOf(8));
    QTest::keyClick(slider, Qt::Key_Left);
    QCOMPARE(slider->value(), 10);
    QTest::keyClick(slider, Qt::Key_End);
    QTest::keyClick(slider, Qt::Key_Left);
    QCOMPARE(slider->value(), 12);
    QTest::keyClick(slider, Qt::Key_Home);
    QCOMPARE(slider->value(), 8);
    // A page that scrolls below the pointer changes nothing.
    QWheelEvent wheel({5, 5}, slider->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(slider, &wheel);
    QCOMPARE(slider->value(), 8);
}

void ButtonsTest::sliderFollowsThePress()
{
    Stage stage;
    auto* slider = stage.add(new Slider(*m_visual, u"Timeout"_qs, 8, 12, u"8s"_qs, u"12s"_qs));
    stage.open();
    QSignalSpy changed(slider, &QSlider::valueChanged);
    const auto at = [&](int value) {
        return QPoint(qRound(slider->positionOf(value)), slider->height() / 2);
    };
    QTest::mousePress(slider, Qt::LeftButton, {}, at(11));
    QCOMPARE(slider->value(), 11);
    QTest::mouseMove(slider, at(9));
    QCOMPARE(slider->value(), 9);
    QTest::mouseMove(slider, QPoint(-200, 5));
    QCOMPARE(slider->value(), 8);
    QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(-200, 5));
    QTest::mouseMove(slider, at(12));
    QCOMPARE(slider->value(), 8);
    QCOMPARE(changed.size(), 3);
}

void ButtonsTest::ringTurnsOnlyWhileSeen()
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

QTEST_MAIN(ButtonsTest)
#include "ButtonsTest.moc"
