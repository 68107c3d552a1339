#include "views/style/Painting.h"
#include "views/style/SymbolCache.h"
#include "views/style/TrovellBrandMark.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QTest>

using namespace trovell;

class SymbolsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tintsEveryPixel_data();
    void tintsEveryPixel();
    void keepsColorsApart();
    void strokeWidthThickens();
    void unknownNameIsEmpty();
    void logoKeepsItsColors();
    void paintsUnscaledPixels_data();
    void paintsUnscaledPixels();
    void groupFadesAsOnePicture();
    void brandMarkOfSizeZero();
};

namespace {

int opaquePixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y).alpha() > 127 ? 1 : 0;
    return count;
}

} // namespace

void SymbolsTest::tintsEveryPixel_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : {u"book"_qs, u"play.fill"_qs, u"checkmark.circle.fill"_qs,
                                u"exclamationmark.triangle.fill"_qs, u"_ui/grip"_qs})
        QTest::newRow(qPrintable(name)) << name;
}

void SymbolsTest::tintsEveryPixel()
{
    QFETCH(QString, name);
    SymbolCache cache;
    const QColor color(0xff, 0x85, 0x7c);
    const QImage image = cache.symbol({name, 40, color.rgba(), 0}).toImage();
    QCOMPARE(image.size(), QSize(40, 40));
    QVERIFY(opaquePixels(image) > 30);
    // A filled symbol has real holes, so never all of the square is covered.
    QVERIFY(opaquePixels(image) < 40 * 40 * 9 / 10);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() == 255)
                QCOMPARE(image.pixelColor(x, y), color);
}

void SymbolsTest::keepsColorsApart()
{
    SymbolCache cache;
    const QString name = u"play.fill"_qs;
    const auto middle = [&](QRgb color) {
        return cache.symbol({name, 24, color, 0}).toImage().pixelColor(12, 12);
    };
    const QColor solid(10, 20, 30);
    QColor faint = solid;
    faint.setAlpha(128);
    QCOMPARE(middle(solid.rgba()), solid);
    QCOMPARE(middle(faint.rgba()).alpha(), 128);
    QCOMPARE(middle(solid.rgba()), solid);
}

void SymbolsTest::strokeWidthThickens()
{
    SymbolCache cache;
    const QRgb black = qRgb(0, 0, 0);
    const QString name = u"_ui/checkmark"_qs;
    const int usual = opaquePixels(cache.symbol({name, 48, black, 0}).toImage());
    const int thick = opaquePixels(cache.symbol({name, 48, black, 3}).toImage());
    QVERIFY(thick > usual * 3 / 2);
}

void SymbolsTest::unknownNameIsEmpty()
{
    SymbolCache cache;
    const QImage image = cache.symbol({u"no.such.symbol"_qs, 20, qRgb(0, 0, 0), 0}).toImage();
    QCOMPARE(image.size(), QSize(20, 20));
    QCOMPARE(opaquePixels(image), 0);
}

void SymbolsTest::logoKeepsItsColors()
{
    SymbolCache cache;
    const QImage image = cache.logo(512).toImage();
    QCOMPARE(image.pixelColor(377, 163), QColor(0xff, 0xc3, 0x5a));
    QCOMPARE(image.pixelColor(256, 340), QColor(0xcb, 0xd7, 0xff));
}

void SymbolsTest::paintsUnscaledPixels_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("%g", scale) << scale;
}

/// What is painted is the cached picture pixel by pixel: any resampling would blur it.
void SymbolsTest::paintsUnscaledPixels()
{
    QFETCH(double, scale);
    const VisualStyle visual;
    const QColor color(0, 0, 0);
    QImage canvas(qRound(60 * scale), qRound(60 * scale), QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(scale);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.translate(3, 5); // as inside a child widget
    visual.paintSymbol(painter, QRectF(7, 11, 18, 18), u"terminal"_qs, color);
    painter.end();

    const int pixels = qRound(18 * scale);
    SymbolCache cache;
    const QImage expected = cache.symbol({u"terminal"_qs, pixels, color.rgba(), 0})
                                .toImage()
                                .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(1);
    bool found = false;
    for (int dy = -1; dy <= 1 && !found; ++dy)
        for (int dx = -1; dx <= 1 && !found; ++dx) {
            const QPoint corner(qRound(10 * scale) + dx, qRound(16 * scale) + dy);
            found = canvas.copy(QRect(corner, expected.size())) == expected;
        }
    QVERIFY(found);
}

void SymbolsTest::groupFadesAsOnePicture()
{
    QImage canvas(40, 40, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(2);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    paintGroup(painter, QRectF(5, 5, 10, 10), 0.5, [](QPainter& group) {
        group.fillRect(QRectF(5, 5, 10, 10), Qt::black);
        group.fillRect(QRectF(8, 8, 4, 4), Qt::white);
    });
    painter.end();
    // The white square hides the black one below it although both are half transparent.
    QCOMPARE(canvas.pixelColor(20, 20), QColor(Qt::white));
    QVERIFY(std::abs(canvas.pixelColor(12, 12).red() - 127) <= 1);
    QCOMPARE(canvas.pixelColor(8, 8), QColor(Qt::white));
}

void SymbolsTest::brandMarkOfSizeZero()
{
    const VisualStyle visual;
    const TrovellBrandMark none(visual, 0);
    QCOMPARE(none.sizeHint(), QSize(0, 0));
    QCOMPARE(none.maximumSize(), QSize(0, 0));
    TrovellBrandMark mark(visual, 72);
    QCOMPARE(mark.grab().toImage().pixelColor(51, 23), QColor(0xff, 0xc3, 0x5a));
}

QTEST_MAIN(SymbolsTest)
#include "SymbolsTest.moc"
