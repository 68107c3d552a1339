#include "Stage.h"

#include "views/style/ActionButton.h"
#include "views/style/CheckBox.h"
#include "views/style/LinkButton.h"
#include "views/style/Picker.h"
#include "views/style/PushButton.h"
#include "views/style/Slider.h"
#include "views/style/Switch.h"
#include "views/style/SymbolLink.h"
#include "views/style/TextField.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace trovell;

namespace {

const QString longText =
    u"Keep Trovell running after closing the main window, for the time being"_qs;

} // namespace

class AppearanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_visual = std::make_unique<StillStyle>(); }
    void cleanup();
    void openWindowChangesAtOnce();
    void nothingElidesAtItsOwnSize_data();
    void nothingElidesAtItsOwnSize();
    void wrappedTextIsNeverCut();

private:
    std::unique_ptr<StillStyle> m_visual;
};

void AppearanceTest::cleanup()
{
    m_visual->setAppearance(Appearance::light);
    m_visual->setFontFactor(1);
}

void AppearanceTest::openWindowChangesAtOnce()
{
    Stage stage;
    auto* card = stage.add(new TrovellCardModifier(*m_visual));
    card->setMinimumHeight(60);
    auto* field = stage.add(new TextField(*m_visual, u"Name"_qs));
    stage.open();
    const auto colors = [&] {
        return QList<QColor>{shownColor(stage, {4, 4}), shownColor(*card, {30, 30}),
                             shownColor(*field, {60, 6})};
    };
    const auto expected = [&] {
        return QList<QColor>{m_visual->pageBackground(),
                             m_visual->color(ColorToken::cardBackground),
                             m_visual->color(ColorToken::fieldBackground)};
    };
    const QList<QColor> light = expected();
    QCOMPARE(colors(), light);
    QSignalSpy changed(m_visual.get(), &VisualStyle::appearanceChanged);
    m_visual->setAppearance(Appearance::dark);
    QCOMPARE(changed.size(), 1);
    QVERIFY(expected() != light);
    QTRY_COMPARE(colors(), expected());
    QCOMPARE(field->palette().color(QPalette::Highlight),
             m_visual->color(ColorToken::textSelection));
    m_visual->setAppearance(Appearance::light);
    QTRY_COMPARE(colors(), light);
}

void AppearanceTest::nothingElidesAtItsOwnSize_data()
{
    QTest::addColumn<double>("factor");
    for (int hundredths = 90; hundredths <= 150; hundredths += 5)
        QTest::addRow("%d %%", hundredths) << hundredths / 100.0;
}

/// With more room than it asks for a control paints the same text, so it had room for all of it.
void AppearanceTest::nothingElidesAtItsOwnSize()
{
    QFETCH(double, factor);
    m_visual->setFontFactor(factor);
    const VisualStyle& visual = *m_visual;
    Picker picker(visual, u"Language"_qs, 40);
    picker.addItem(u"Português (Brasil)"_qs);
    ActionButton action(visual, u"play.fill"_qs, u"Start"_qs,
                        u"Open everything and restore the layout"_qs);
    SymbolLink link(visual, u"gearshape"_qs, u"Settings"_qs);
    CheckBox box(visual, u"Add as launch item"_qs);
    LinkButton locate(visual, u"Locate Again"_qs);
    TextLabel label(visual, u"Workspaces"_qs, TextRole::caption);
    for (QWidget* control :
         std::initializer_list<QWidget*>{&picker, &action, &link, &box, &locate, &label}) {
        const QSize wanted = control->sizeHint();
        // The text ends before the far padding, which moves along with the edge.
        const QRect part(0, 4, wanted.width() - 34, wanted.height() - 8);
        const auto painted = [&](int extra) {
            control->setFixedSize(wanted + QSize(extra, 0));
            return control->grab().toImage().copy(part);
        };
        QVERIFY2(painted(0) == painted(40), control->metaObject()->className());
    }
}

void AppearanceTest::wrappedTextIsNeverCut()
{
    for (const auto& [factor, width] : {std::pair(1.0, 540), {1.0, 260}, {1.5, 400}, {1.5, 260}}) {
        m_visual->setFontFactor(factor);
        Stage stage;
        auto* label = new TextLabel(*m_visual, longText, TextRole::callout);
        label->setWordWrap(true);
        stage.add(label);
        auto* toggle = stage.add(new Switch(*m_visual, longText));
        stage.open({width, 400});
        const auto needed = [&](TextRole role, int room) {
            return Paragraph(longText, m_visual->text(role), room, Qt::LeftToRight).height();
        };
        QTRY_COMPARE(label->height(), needed(TextRole::callout, label->width()));
        const int track = m_visual->scaled(Tokens::Size::switchWidth);
        QVERIFY(toggle->height() >= needed(TextRole::body, toggle->width() - track - 16));
    }
}

QTEST_MAIN(AppearanceTest)
#include "AppearanceTest.moc"
