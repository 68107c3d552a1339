#include "views/style/Painting.h"
#include "views/style/SymbolCache.h"
#include "views/style/VisualStyle.h"

#include <QPainter>
#include <QTest>

using namespace trovell;

class SymbolsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tintsEveryPixel();
    void paintsUnscaledPixels_data();
    void paintsUnscaledPixels();
    void groupFadesAsOnePicture();
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

void SymbolsTest::tintsEveryPixel()
{
    SymbolCache cache;
    for (const QColor& color : {QColor(0xff, 0x85, 0x7c), QColor(10, 20, 30)}) {
        for (const QString& name : {u"book"_qs, u"exclamationmark.triangle.fill"_qs}) {
            const QImage image = cache.symbol({name, 40, color.rgba(), 0}).toImage();
            // A filled symbol has real holes, so never all of the square is covered.
            QVERIFY(opaquePixels(image) > 30 && opaquePixels(image) < 40 * 40 * 9 / 10);
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (image.pixelColor(x, y).alpha() == 255)
                        QCOMPARE(image.pixelColor(x, y), color);
        }
    }
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

QTEST_MAIN(SymbolsTest)
#include "SymbolsTest.moc"
