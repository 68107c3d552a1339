#include "Stage.h"

#include "views/style/ActionButton.h"
#include "views/style/Alert.h"
#include "views/style/BannerFrame.h"
#include "views/style/CheckBox.h"
#include "views/style/ChoiceRow.h"
#include "views/style/Divider.h"
#include "views/style/Picker.h"
#include "views/style/ProgressRing.h"
#include "views/style/PushButton.h"
#include "views/style/Slider.h"
#include "views/style/Switch.h"
#include "views/style/SymbolButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellBrandMark.h"

#include <QAccessible>
#include <QFocusFrame>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace trovell;

namespace {

QAccessibleInterface* part(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString nameOf(QObject* object)
{
    return part(object)->text(QAccessible::Name);
}

} // namespace

class AccessibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_visual = std::make_unique<StillStyle>(); }

    void rolesAndNames();
    void decorationsAreHidden();
    void togglesAreCheckBoxes();
    void choicesAreRadioButtons();
    void pickerOpensByItsAction();
    void alertTellsTitleAndMessage();
    void focusRingFollows();

private:
    std::unique_ptr<StillStyle> m_visual;
};

void AccessibilityTest::rolesAndNames()
{
    struct Case {
        std::unique_ptr<QWidget> widget;
        QAccessible::Role role;
        QString name;
    };
    const VisualStyle& visual = *m_visual;
    PopupMenu menu(visual);
    auto* actions = new SymbolButton(visual, u"ellipsis.circle"_qs, u"Workspace Actions"_qs);
    actions->setMenu(&menu);
    auto* banner = new BannerFrame(visual, BannerFrame::Kind::success);
    banner->announce(u"Writing layout updated."_qs);
    auto* warning = new SymbolView(visual, u"exclamationmark.triangle.fill"_qs, 18);
    warning->setAccessibleName(u"Resource is missing"_qs);
    std::vector<Case> cases;
    const auto add = [&](QWidget* widget, QAccessible::Role role, const QString& name) {
        cases.push_back({std::unique_ptr<QWidget>(widget), role, name});
    };
    add(new PushButton(visual, u"Save"_qs), QAccessible::Button, u"Save"_qs);
    auto* starting = new ActionButton(visual, u"play.fill"_qs, u"Start"_qs, u"Opens"_qs);
    starting->setBusyTitle(u"Starting…"_qs);
    add(starting, QAccessible::Button, u"Starting…"_qs);
    add(actions, QAccessible::ButtonMenu, u"Workspace Actions"_qs);
    add(new TextField(visual, u"Name"_qs, u"Workspace name"_qs), QAccessible::EditableText,
        u"Name"_qs);
    add(new Picker(visual, u"Shortcut"_qs, 180), QAccessible::ComboBox, u"Shortcut"_qs);
    add(new ProgressRing(visual, u"Reading windows"_qs), QAccessible::ProgressBar,
        u"Reading windows"_qs);
    add(new Slider(visual, u"Timeout"_qs, 8, 12, {}, {}), QAccessible::Slider, u"Timeout"_qs);
    add(new TextLabel(visual, u"Q&A"_qs), QAccessible::StaticText, u"Q&A"_qs);
    add(new SelectableLabel(visual, u"a < b"_qs), QAccessible::StaticText, u"a < b"_qs);
    add(banner, QAccessible::AlertMessage, u"Writing layout updated."_qs);
    add(warning, QAccessible::Graphic, u"Resource is missing"_qs);
    for (const Case& one : cases) {
        const QByteArray what = one.widget->metaObject()->className();
        QVERIFY2(part(one.widget.get())->role() == one.role, what.constData());
        QCOMPARE(nameOf(one.widget.get()), one.name);
    }
}

void AccessibilityTest::decorationsAreHidden()
{
    Stage stage;
    const QList<QWidget*> decorations{stage.add(new Divider(*m_visual)),
                                      stage.add(new TrovellBrandMark(*m_visual, 40)),
                                      stage.add(new SymbolView(*m_visual, u"lock.fill"_qs, 20))};
    auto* label = stage.add(new TextLabel(*m_visual, u"Version 1.0 (1)"_qs));
    stage.open();
    for (QWidget* decoration : decorations) {
        QVERIFY(part(decoration)->state().invisible);
        QVERIFY(nameOf(decoration).isEmpty());
    }
    QVERIFY(!part(label)->state().invisible);
}

void AccessibilityTest::togglesAreCheckBoxes()
{
    Stage stage;
    const QList<QAbstractButton*> toggles{
        stage.add(new Switch(*m_visual, u"Launch at login & stay"_qs)),
        stage.add(new CheckBox(*m_visual, u"Launch at login & stay"_qs))};
    stage.open();
    for (QAbstractButton* toggle : toggles) {
        QAccessibleInterface* face = part(toggle);
        QCOMPARE(face->role(), QAccessible::CheckBox);
        QCOMPARE(nameOf(toggle), u"Launch at login & stay"_qs);
        QVERIFY(face->state().checkable && !face->state().checked);
        face->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(toggle->isChecked());
        QVERIFY(face->state().checked);
    }
}

void AccessibilityTest::choicesAreRadioButtons()
{
    Stage stage;
    auto* row = stage.add(new IconChoiceRow(*m_visual, u"Icon"_qs, {u"book"_qs, u"hammer"_qs}));
    row->setSelected(u"book"_qs);
    stage.open();
    QSignalSpy chosen(row, &ChoiceRow::chosen);
    QAccessibleInterface* group = part(row);
    QCOMPARE(group->role(), QAccessible::Grouping);
    QCOMPARE(group->text(QAccessible::Name), u"Icon"_qs);
    QCOMPARE(group->childCount(), 2);
    QAccessibleInterface* hammer = group->child(1);
    QCOMPARE(hammer->role(), QAccessible::RadioButton);
    QCOMPARE(hammer->text(QAccessible::Name), u"hammer"_qs);
    QVERIFY(group->child(0)->state().checked && !hammer->state().checked);
    hammer->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_VERIFY(!group->child(0)->state().checked && hammer->state().checked);
    QCOMPARE(row->selected(), u"hammer"_qs);
    group->child(0)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(chosen.size(), 2);
    QCOMPARE(row->selected(), u"book"_qs);
    row->setSelected(u"unknown"_qs);
    QVERIFY(!hammer->state().checked);
    QCOMPARE(hammer->role(), QAccessible::RadioButton);
}

void AccessibilityTest::pickerOpensByItsAction()
{
    Stage stage;
    auto* picker = stage.add(new Picker(*m_visual, u"Shortcut"_qs, 180));
    picker->addItems({u"None"_qs, u"Ctrl+Alt+1"_qs});
    stage.open();
    QAccessibleInterface* face = part(picker);
    QCOMPARE(face->text(QAccessible::Name), u"Shortcut"_qs);
    QCOMPARE(face->text(QAccessible::Description), u"None"_qs);
    QCOMPARE(face->childCount(), 0);
    face->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QWidget* menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QVERIFY(part(menu)->child(0)->state().checked);
    menu->close();
}

void AccessibilityTest::alertTellsTitleAndMessage()
{
    Stage stage;
    stage.open();
    Alert alert(*m_visual, &stage, u"Delete Workspace?"_qs, u"This cannot be undone."_qs);
    alert.setAttribute(Qt::WA_DeleteOnClose, false);
    alert.addButton(u"Cancel"_qs, Alert::Role::cancel);
    alert.open();
    QAccessibleInterface* face = part(&alert);
    QCOMPARE(face->role(), QAccessible::Dialog);
    QCOMPARE(face->text(QAccessible::Name), u"Delete Workspace?"_qs);
    QCOMPARE(face->text(QAccessible::Description), u"This cannot be undone."_qs);
    QVERIFY(face->state().modal);
    alert.cancel();
}

void AccessibilityTest::focusRingFollows()
{
    Stage stage;
    auto* first = stage.add(new PushButton(*m_visual, u"First"_qs));
    auto* second = stage.add(new CheckBox(*m_visual, u"Second"_qs));
    auto* field = stage.add(new TextField(*m_visual, u"Field"_qs));
    stage.open();
    const auto ringOf = [&] {
        const auto* frame = stage.findChild<QFocusFrame*>();
        return frame && frame->isVisible() ? frame->widget() : nullptr;
    };
    first->setFocus();
    QCOMPARE(ringOf(), first);
    // Outside the button, beyond a gap of two pixels.
    const QColor ring = m_visual->color(ColorToken::focusRing);
    const QPoint left = first->pos() + QPoint(0, first->height() / 2);
    QCOMPARE(shownColor(stage, left - QPoint(3, 0)), ring);
    QCOMPARE(shownColor(stage, left - QPoint(1, 0)), m_visual->pageBackground());
    first->move(first->pos() + QPoint(30, 0));
    QCOMPARE(shownColor(stage, left + QPoint(27, 0)), ring);
    QTest::keyClick(first, Qt::Key_Tab);
    QCOMPARE(ringOf(), second);
    QTest::keyClick(second, Qt::Key_Tab);
    QVERIFY(field->hasFocus());
    QVERIFY(!ringOf());
    QCOMPARE(shownColor(*field, {1, field->height() / 2}), ring);
}

QTEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
