#include "views/style/DesktopFont.h"
#include "views/style/VisualStyle.h"

#include <QTest>

using namespace trovell;

class TokensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsEveryKindOfEntry();
    void accentColor_data();
    void accentColor();
    void fontFactor_data();
    void fontFactor();
    void paletteFollowsTheAppearance();
};

void TokensTest::readsEveryKindOfEntry()
{
    // Loading ends the program on any missing key, so this also proves the enumerations complete.
    const Tokens tokens = Tokens::builtIn();
    const Palette& light = tokens.palette(Appearance::light);
    const Palette& dark = tokens.palette(Appearance::dark);
    QCOMPARE(light.color(ColorToken::pageBackground), QColor(246, 246, 244));
    QCOMPARE(dark.color(ColorToken::pageBackground), QColor(22, 22, 22));
    QCOMPARE(light.color(ColorToken::brand), QColor(75, 114, 255));
    QCOMPARE(dark.color(ColorToken::brand), QColor(75, 114, 255));
    // The card's outline is the separator at 70 %.
    for (const Palette* palette : {&light, &dark}) {
        const QColor separator = palette->color(ColorToken::separator);
        const QColor border = palette->color(ColorToken::cardBorder);
        QCOMPARE(border.rgb(), separator.rgb());
        QVERIFY(std::abs(border.alphaF() - 0.7f * separator.alphaF()) < 0.002f);
    }
    const QList<ShadowLayer>& shadow = light.shadow(Palette::Shadow::shadowSheet);
    QCOMPARE(shadow.size(), 2);
    QCOMPARE(shadow[0].offset, 28.0);
    QCOMPARE(shadow[0].blur, 80.0);
    QCOMPARE(shadow[0].color.alpha(), 87);
    QCOMPARE(shadow[1].color.alpha(), 36);
    QCOMPARE(tokens.space(Space::xl3), 20);
    QCOMPARE(tokens.space(Space::xl6), 40);
    QCOMPARE(tokens.iconChoice(), QSize(30, 28));
    QCOMPARE(tokens.families().first(), u"Inter"_qs);
}

void TokensTest::accentColor_data()
{
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<ColorToken>("light");
    QTest::newRow("blue") << u"blue"_qs << ColorToken::brand;
    QTest::newRow("indigo") << u"indigo"_qs << ColorToken::indigo;
    QTest::newRow("purple") << u"purple"_qs << ColorToken::purple;
    QTest::newRow("green") << u"green"_qs << ColorToken::green;
    QTest::newRow("orange") << u"orange"_qs << ColorToken::orange;
    QTest::newRow("other case") << u"Indigo"_qs << ColorToken::brand;
    QTest::newRow("space") << u"green "_qs << ColorToken::brand;
    QTest::newRow("a token, no accent") << u"success"_qs << ColorToken::brand;
    QTest::newRow("empty") << QString() << ColorToken::brand;
}

void TokensTest::accentColor()
{
    QFETCH(QString, identifier);
    QFETCH(ColorToken, light);
    VisualStyle visual;
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        visual.setAppearance(appearance);
        QCOMPARE(visual.accentColor(identifier), visual.color(light));
    }
}

void TokensTest::fontFactor_data()
{
    QTest::addColumn<double>("pointSize");
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<double>("factor");
    QTest::newRow("nothing told") << 9.0 << QString() << 1.0;
    QTest::newRow("no size") << -1.0 << u"XFCE"_qs << 1.0;
    QTest::newRow("usual GNOME") << 11.0 << u"ubuntu:GNOME"_qs << 1.0;
    QTest::newRow("usual KDE") << 10.0 << u"KDE"_qs << 1.0;
    QTest::newRow("small KDE") << 9.0 << u"KDE"_qs << 0.9;
    QTest::newRow("large") << 13.0 << u"XFCE"_qs << 1.3;
    QTest::newRow("huge") << 24.0 << u"KDE"_qs << 1.5;
    QTest::newRow("tiny") << 5.0 << u"KDE"_qs << 0.9;
}

void TokensTest::fontFactor()
{
    QFETCH(double, pointSize);
    QFETCH(QString, desktop);
    QTEST(desktopFontFactor(pointSize, desktop), "factor");
}

void TokensTest::paletteFollowsTheAppearance()
{
    VisualStyle visual;
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        visual.setAppearance(appearance);
        const QPalette palette = visual.palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            QCOMPARE(palette.color(group, QPalette::Window), visual.pageBackground());
            QCOMPARE(palette.color(group, QPalette::Highlight), visual.color(ColorToken::action));
        }
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::ButtonText),
                 visual.color(ColorToken::labelDisabled));
    }
}

QTEST_MAIN(TokensTest)
#include "TokensTest.moc"
