// SPDX-License-Identifier: MIT

#include "Stage.h"

#include "support/Patience.h"
#include "views/style/BannerFrame.h"
#include "views/style/ChoiceRow.h"
#include "views/style/Divider.h"
#include "views/style/Picker.h"
#include "views/style/ProgressRing.h"
#include "views/style/PushButton.h"
#include "views/style/Switch.h"
#include "views/style/SymbolView.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellBrandMark.h"

#include <QAccessible>
#include <QMenu>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

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
        check(new PushButton(m_visual, u"Save"_s), QAccessible::Button, u"Save"_s);
        check(new TextField(m_visual, u"Name"_s, u"Workspace name"_s), QAccessible::EditableText,
              u"Name"_s);
        check(new ProgressRing(m_visual, u"Reading"_s), QAccessible::ProgressBar, u"Reading"_s);
        check(new Picker(m_visual, u"Shortcut"_s, 180), QAccessible::ComboBox, u"Shortcut"_s);
        check(new Switch(m_visual, u"Open & stay"_s), QAccessible::CheckBox, u"Open & stay"_s);
        check(new TextLabel(m_visual, u"Q&A"_s), QAccessible::StaticText, u"Q&A"_s);
        check(new SelectableLabel(m_visual, u"a < b"_s), QAccessible::StaticText, u"a < b"_s);
        auto* starting = new ActionButton(m_visual, u"play.fill"_s, u"Start"_s, u"Opens"_s);
        starting->setBusyTexts(u"Starting…"_s, u"Cancel"_s);
        check(starting, QAccessible::Button, u"Starting…"_s);
        QMenu menu;
        auto* actions = new SymbolButton(m_visual, u"ellipsis.circle"_s, u"Workspace Actions"_s);
        actions->setMenu(&menu);
        check(actions, QAccessible::ButtonMenu, u"Workspace Actions"_s);
        auto* banner = new BannerFrame(m_visual, BannerFrame::Kind::success);
        banner->announce(u"Writing layout updated."_s);
        check(banner, QAccessible::AlertMessage, u"Writing layout updated."_s);
        auto* warning = new SymbolView(m_visual, u"exclamationmark.triangle.fill"_s, 18);
        warning->setAccessibleName(u"Resource is missing"_s);
        check(warning, QAccessible::Graphic, u"Resource is missing"_s);
    }

    void decorationsAreHidden()
    {
        Stage stage;
        const QList<QWidget*> decorations{stage.add(new Divider(m_visual)),
                                          stage.add(new TrovellBrandMark(m_visual, 40)),
                                          stage.add(new SymbolView(m_visual, u"lock.fill"_s, 20))};
        stage.open();
        for (QWidget* decoration : decorations) {
            QVERIFY(part(decoration)->state().invisible);
            QVERIFY(nameOf(decoration).isEmpty());
        }
    }

    void choicesAreRadioButtons()
    {
        Stage stage;
        auto* row = stage.add(
            new ChoiceRow(m_visual, ChoiceRow::Look::symbol, u"Icon"_s, {u"book"_s, u"hammer"_s}));
        row->setSelected(u"book"_s);
        stage.open();
        QCOMPARE(part(row)->role(), QAccessible::Grouping);
        QCOMPARE(nameOf(row), u"Icon"_s);
        QAccessibleInterface* hammer = part(row)->child(1);
        QCOMPARE(hammer->role(), QAccessible::RadioButton);
        QCOMPARE(hammer->text(QAccessible::Name), u"hammer"_s);
        QVERIFY(part(row)->child(0)->state().checked && !hammer->state().checked);
        hammer->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_VERIFY(!part(row)->child(0)->state().checked && hammer->state().checked);
        QCOMPARE(row->selected(), u"hammer"_s);
    }

    void focusRingFollows()
    {
        Stage stage;
        auto* button = stage.add(new PushButton(m_visual, u"Button"_s));
        auto* field = stage.add(new TextField(m_visual, u"Field"_s));
        stage.open();
        button->setFocus();
        // Outside the button, beyond a gap of two pixels.
        const QColor ring = m_visual.color(ColorToken::focusRing);
        const QPoint left = button->pos() + QPoint(0, button->height() / 2);
        QCOMPARE(shownColor(stage, left - QPoint(3, 0)), ring);
        QCOMPARE(shownColor(stage, left - QPoint(1, 0)),
                 m_visual.color(ColorToken::pageBackground));
        button->move(button->pos() + QPoint(30, 0));
        QCOMPARE(shownColor(stage, left + QPoint(27, 0)), ring);
        QTest::keyClick(button, Qt::Key_Tab);
        QVERIFY(field->hasFocus());
        QCOMPARE(shownColor(stage, left + QPoint(27, 0)),
                 m_visual.color(ColorToken::pageBackground));
        QCOMPARE(shownColor(*field, {1, field->height() / 2}), ring);
    }

private:
    const StillStyle m_visual;
};

QTEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
