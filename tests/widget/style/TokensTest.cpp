#include "views/style/DesktopFont.h"
#include "views/style/VisualStyle.h"

#include <QTest>

using namespace trovell;

class TokensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void accentColor();
    void fontFactor_data();
    void fontFactor();
};

void TokensTest::accentColor()
{
    VisualStyle visual;
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        visual.setAppearance(appearance);
        QCOMPARE(visual.accentColor(u"orange"_qs), visual.color(ColorToken::orange));
        // Names of other tokens, and what is no name at all, are blue.
        for (const QString& name : {u"blue"_qs, u"Indigo"_qs, u"green "_qs, u"success"_qs, u""_qs})
            QCOMPARE(visual.accentColor(name), visual.color(ColorToken::brand));
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

QTEST_MAIN(TokensTest)
#include "TokensTest.moc"
