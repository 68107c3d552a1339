#include "Stage.h"

#include "views/style/ActionButton.h"
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
    void rolesAndNames()
    {
        const auto check = [](QWidget* widget, QAccessible::Role role, const QString& name) {
            const std::unique_ptr<QWidget> owner(widget);
            QVERIFY2(part(widget)->role() == role, widget->metaObject()->className());
            QCOMPARE(nameOf(widget), name);
        };
        check(new PushButton(m_visual, u"Save"_qs), QAccessible::Button, u"Save"_qs);
        check(new TextField(m_visual, u"Name"_qs, u"Workspace name"_qs), QAccessible::EditableText,
              u"Name"_qs);
        check(new ProgressRing(m_visual, u"Reading"_qs), QAccessible::ProgressBar, u"Reading"_qs);
        check(new Slider(m_visual, u"Time"_qs, 8, 12, {}, {}), QAccessible::Slider, u"Time"_qs);
        check(new Picker(m_visual, u"Shortcut"_qs, 180), QAccessible::ComboBox, u"Shortcut"_qs);
        check(new Switch(m_visual, u"Open & stay"_qs), QAccessible::CheckBox, u"Open & stay"_qs);
        check(new CheckBox(m_visual, u"Keep"_qs), QAccessible::CheckBox, u"Keep"_qs);
        check(new TextLabel(m_visual, u"Q&A"_qs), QAccessible::StaticText, u"Q&A"_qs);
        check(new SelectableLabel(m_visual, u"a < b"_qs), QAccessible::StaticText, u"a < b"_qs);
        auto* starting = new ActionButton(m_visual, u"play.fill"_qs, u"Start"_qs, u"Opens"_qs);
        starting->setBusyTitle(u"Starting…"_qs);
        check(starting, QAccessible::Button, u"Starting…"_qs);
        PopupMenu menu(m_visual);
        auto* actions = new SymbolButton(m_visual, u"ellipsis.circle"_qs, u"Workspace Actions"_qs);
        actions->setMenu(&menu);
        check(actions, QAccessible::ButtonMenu, u"Workspace Actions"_qs);
        auto* banner = new BannerFrame(m_visual, BannerFrame::Kind::success);
        banner->announce(u"Writing layout updated."_qs);
        check(banner, QAccessible::AlertMessage, u"Writing layout updated."_qs);
        auto* warning = new SymbolView(m_visual, u"exclamationmark.triangle.fill"_qs, 18);
        warning->setAccessibleName(u"Resource is missing"_qs);
        check(warning, QAccessible::Graphic, u"Resource is missing"_qs);
    }

    void decorationsAreHidden()
    {
        Stage stage;
        const QList<QWidget*> decorations{stage.add(new Divider(m_visual)),
                                          stage.add(new TrovellBrandMark(m_visual, 40)),
                                          stage.add(new SymbolView(m_visual, u"lock.fill"_qs, 20))};
        stage.open();
        for (QWidget* decoration : decorations) {
            QVERIFY(part(decoration)->state().invisible);
            QVERIFY(nameOf(decoration).isEmpty());
        }
    }

    void choicesAreRadioButtons()
    {
        Stage stage;
        auto* row = stage.add(new IconChoiceRow(m_visual, u"Icon"_qs, {u"book"_qs, u"hammer"_qs}));
        row->setSelected(u"book"_qs);
        stage.open();
        QCOMPARE(part(row)->role(), QAccessible::Grouping);
        QCOMPARE(nameOf(row), u"Icon"_qs);
        QAccessibleInterface* hammer = part(row)->child(1);
        QCOMPARE(hammer->role(), QAccessible::RadioButton);
        QCOMPARE(hammer->text(QAccessible::Name), u"hammer"_qs);
        QVERIFY(part(row)->child(0)->state().checked && !hammer->state().checked);
        hammer->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_VERIFY(!part(row)->child(0)->state().checked && hammer->state().checked);
        QCOMPARE(row->selected(), u"hammer"_qs);
    }

    void focusRingFollows()
    {
        Stage stage;
        auto* button = stage.add(new PushButton(m_visual, u"Button"_qs));
        auto* field = stage.add(new TextField(m_visual, u"Field"_qs));
        stage.open();
        button->setFocus();
        // Outside the button, beyond a gap of two pixels.
        const QColor ring = m_visual.color(ColorToken::focusRing);
        const QPoint left = button->pos() + QPoint(0, button->height() / 2);
        QCOMPARE(shownColor(stage, left - QPoint(3, 0)), ring);
        QCOMPARE(shownColor(stage, left - QPoint(1, 0)), m_visual.pageBackground());
        button->move(button->pos() + QPoint(30, 0));
        QCOMPARE(shownColor(stage, left + QPoint(27, 0)), ring);
        QTest::keyClick(button, Qt::Key_Tab);
        QVERIFY(field->hasFocus());
        QCOMPARE(shownColor(stage, left + QPoint(27, 0)), m_visual.pageBackground());
        QCOMPARE(shownColor(*field, {1, field->height() / 2}), ring);
    }

private:
    const StillStyle m_visual;
};

QTEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
