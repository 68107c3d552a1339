// SPDX-License-Identifier: MIT

#include "Stage.h"

#include "support/Patience.h"
#include "views/style/DesktopFont.h"
#include "views/style/Picker.h"
#include "views/style/PushButton.h"
#include "views/style/Switch.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

const QString longText =
    u"Keep Trovell running after closing the main window, for the time being"_s;

} // namespace

class AppearanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_visual.setFontFactor(1); }
    void openWindowChangesAtOnce()
    {
        Stage stage;
        auto* card = stage.add(new TrovellCardModifier(m_visual));
        card->setMinimumHeight(60);
        auto* field = stage.add(new TextField(m_visual, u"Name"_s));
        stage.open();
        const auto colors = [&] {
            return QList<QColor>{shownColor(stage, {4, 4}), shownColor(*card, {30, 30}),
                                 shownColor(*field, {60, 6})};
        };
        const auto expected = [&] {
            return QList<QColor>{m_visual.color(ColorToken::pageBackground),
                                 m_visual.color(ColorToken::cardBackground),
                                 m_visual.color(ColorToken::fieldBackground)};
        };
        const QList<QColor> light = expected();
        QCOMPARE(colors(), light);
        QSignalSpy changed(&m_visual, &VisualStyle::appearanceChanged);
        m_visual.setAppearance(Appearance::dark);
        QCOMPARE(changed.size(), 1);
        QVERIFY(expected() != light);
        QTRY_COMPARE(colors(), expected());
        QCOMPARE(field->palette().color(QPalette::Highlight),
                 m_visual.color(ColorToken::textSelection));
        m_visual.setAppearance(Appearance::light);
        QTRY_COMPARE(colors(), light);
    }

    /// With more room than it asks for a control paints the same text, so it had room for all of
    /// it.
    void nothingElidesAtItsOwnSize()
    {
        Picker picker(m_visual, u"Language"_s, 40);
        picker.addItem(u"Português (Brasil)"_s);
        ActionButton action(m_visual, u"play.fill"_s, u"Start"_s,
                            u"Open everything and restore the layout"_s);
        SymbolLink link(m_visual, u"gearshape"_s, u"Settings"_s);
        QCheckBox box(u"Add as launch item"_s);
        LinkButton locate(m_visual, u"Locate Again"_s);
        TextLabel label(m_visual, u"Workspaces"_s, TextRole::caption);
        const auto painted = [](QWidget& control, int extra) {
            const QSize wanted = control.sizeHint();
            control.setFixedSize(wanted + QSize(extra, 0));
            // The text ends before the far padding, which moves along with the edge.
            return control.grab().toImage().copy(0, 4, wanted.width() - 34, wanted.height() - 8);
        };
        for (int hundredths = 90; hundredths <= 150; hundredths += 5) {
            m_visual.setFontFactor(hundredths / 100.0);
            for (QWidget* control :
                 std::initializer_list<QWidget*>{&picker, &action, &link, &box, &locate, &label})
                QVERIFY2(painted(*control, 0) == painted(*control, 40),
                         control->metaObject()->className());
        }
    }

    void wrappedTextIsNeverCut()
    {
        for (const auto& [factor, width] :
             {std::pair(1.0, 540), {1.0, 260}, {1.5, 400}, {1.5, 260}}) {
            m_visual.setFontFactor(factor);
            Stage stage;
            auto* label = new TextLabel(m_visual, longText, TextRole::callout);
            label->setWordWrap(true);
            stage.add(label);
            auto* toggle = stage.add(new Switch(m_visual, longText));
            stage.open({width, 400});
            const auto needed = [&](TextRole role, int room) {
                return Paragraph(longText, m_visual.text(role), room, Qt::LeftToRight).height();
            };
            QTRY_COMPARE(label->height(), needed(TextRole::callout, label->width()));
            const int track = m_visual.scaled(Tokens::Size::switchWidth);
            QVERIFY(toggle->height() >= needed(TextRole::body, toggle->width() - track - 16));
        }
    }

    void fontFactor()
    {
        QCOMPARE(desktopFontFactor(-1, u"XFCE"_s), 1.0);
        QCOMPARE(desktopFontFactor(9, {}), 1.0);
        QCOMPARE(desktopFontFactor(11, u"ubuntu:GNOME"_s), 1.0);
        QCOMPARE(desktopFontFactor(9, u"KDE"_s), 0.9);
        QCOMPARE(desktopFontFactor(13, u"XFCE"_s), 1.3);
        QCOMPARE(desktopFontFactor(24, u"KDE"_s), 1.5);
        QCOMPARE(desktopFontFactor(5, u"KDE"_s), 0.9);
    }

private:
    StillStyle m_visual;
};

QTEST_MAIN(AppearanceTest)
#include "AppearanceTest.moc"
