#include "display/DisplaySnapshot.h"

#include <QtTest>

#include <cmath>

using namespace trovell;

namespace {

DisplayFingerprint fingerprint(const char* name, double width, double height, double scale,
                               double x, double y, bool isMain)
{
    return {QString::fromLatin1(name),
            qint64(width * scale),
            qint64(height * scale),
            width,
            height,
            scale,
            x,
            y,
            isMain};
}

DisplaySnapshot display(const DisplayFingerprint& identity)
{
    const QRectF frame(identity.relativeX, identity.relativeY, identity.pointWidth,
                       identity.pointHeight);
    return {frame, frame, identity};
}

const DisplayFingerprint laptop = fingerprint("A", 1512, 982, 2, 0, 0, true);

} // namespace

class DisplaySnapshotTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void positionsAreRelativeToTheMainScreen();
    void scoresByNameRoleSizeScaleAndPosition_data();
    void scoresByNameRoleSizeScaleAndPosition();
    void choosesTheBestAttachedDisplay();
    void survivesItsStoredForm();
    void readsDamagedBytesAsTheFallback_data();
    void readsDamagedBytesAsTheFallback();
};

void DisplaySnapshotTest::positionsAreRelativeToTheMainScreen()
{
    const QList<Screen> screens{
        {{-1280, 200, 1280, 1024}, {-1280, 200, 1280, 1000}, 1.5, QStringLiteral("Left")},
        {{0, 0, 1600, 900}, {0, 30, 1600, 870}, 1, QStringLiteral("Main")},
    };
    const auto snapshots = makeDisplaySnapshots(screens, 1);
    QCOMPARE(snapshots.at(0).fingerprint, (DisplayFingerprint{QStringLiteral("Left"), 1920, 1536,
                                                              1280, 1024, 1.5, -1280, 200, false}));
    QVERIFY(snapshots.at(1).fingerprint.isMain);
    QCOMPARE(snapshots.at(1).visibleFrame, QRectF(0, 30, 1600, 870));

    const auto withoutMain = makeDisplaySnapshots({screens.at(1), screens.at(0)}, std::nullopt);
    QVERIFY(!withoutMain.at(0).fingerprint.isMain);
    QCOMPARE(withoutMain.at(1).fingerprint.relativeX, -1280.0);
    QVERIFY(makeDisplaySnapshots({}, std::nullopt).isEmpty());
}

void DisplaySnapshotTest::scoresByNameRoleSizeScaleAndPosition_data()
{
    QTest::addColumn<DisplayFingerprint>("saved");
    QTest::addColumn<DisplayFingerprint>("candidate");
    QTest::addColumn<double>("score");

    QTest::newRow("identical") << laptop << laptop << 100.0;
    QTest::newRow("another display")
        << laptop << fingerprint("B", 2560, 1440, 1, 1512, 0, false) << 12.38;
    DisplayFingerprint changed = laptop;
    changed.pixelWidth = 7;
    QTest::newRow("pixels do not count") << laptop << changed << 100.0;
    changed = laptop;
    changed.isMain = false;
    QTest::newRow("same name, other role") << laptop << changed << 80.0;
    changed = laptop;
    changed.localizedName = QStringLiteral("a");
    QTest::newRow("names differ in case") << laptop << changed << 65.0;
    changed = laptop;
    changed.backingScaleFactor = 1.5;
    QTest::newRow("half a scale step") << laptop << changed << 95.0;
    changed.backingScaleFactor = 5;
    QTest::newRow("far scale is not negative") << laptop << changed << 90.0;
    changed = laptop;
    changed.relativeX = 5000;
    QTest::newRow("far position is not negative") << laptop << changed << 90.0;
    changed.relativeX = std::nan("");
    QTest::newRow("no position") << laptop << changed << 90.0;
    QTest::newRow("fallback against a main display")
        << fallbackFingerprint() << fingerprint("C", 1440, 900, 2, 0, 0, true) << 31.6;
}

void DisplaySnapshotTest::scoresByNameRoleSizeScaleAndPosition()
{
    QFETCH(DisplayFingerprint, saved);
    QFETCH(DisplayFingerprint, candidate);
    QTEST(displayMatchScore(saved, candidate), "score");
}

void DisplaySnapshotTest::choosesTheBestAttachedDisplay()
{
    QVERIFY(!bestDisplay(laptop, {}));
    const auto far = display(fingerprint("B", 2560, 1440, 1, 1512, 0, false));
    QCOMPARE(bestDisplay(laptop, {far}), std::optional(far));
    QCOMPARE(bestDisplay(laptop, {far, display(laptop)})->fingerprint, laptop);

    // Equal fingerprints: the earlier one stays.
    auto twin = display(laptop);
    twin.visibleFrame = QRectF(0, 0, 10, 10);
    QCOMPARE(bestDisplay(laptop, {display(laptop), twin}), std::optional(display(laptop)));
}

void DisplaySnapshotTest::survivesItsStoredForm()
{
    DisplayFingerprint saved = fingerprint("", 2560.5, 1440, 1.25, -0.1, 1e300, true);
    saved.localizedName = QStringLiteral("Größe \"27\" 日本\n");
    saved.pixelWidth = 9007199254740993; // beyond what a double can hold
    QCOMPARE(decodeFingerprint(encodeFingerprint(saved)), saved);
    saved.pointWidth = std::numeric_limits<double>::infinity();
    QVERIFY(encodeFingerprint(saved).isEmpty());
}

void DisplaySnapshotTest::readsDamagedBytesAsTheFallback_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray whole = encodeFingerprint(laptop);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut in half") << whole.left(whole.size() / 2);
    QTest::newRow("not an object") << QByteArray("[1]");
    QTest::newRow("key missing") << QByteArray(whole).replace("\"isMain\"", "\"main\"");
    QTest::newRow("number as text") << QByteArray(whole).replace("1512,", "\"1512\",");
    QTest::newRow("flag as number") << QByteArray(whole).replace("true", "1");
    QTest::newRow("fraction of a pixel")
        << QByteArray(whole).replace("\"pixelWidth\":3024", "\"pixelWidth\":3024.5");
    QTest::newRow("undecodable") << QByteArray("\xff\xfe{}", 4);
}

void DisplaySnapshotTest::readsDamagedBytesAsTheFallback()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(decodeFingerprint(bytes), fallbackFingerprint());
}

QTEST_GUILESS_MAIN(DisplaySnapshotTest)
#include "DisplaySnapshotTest.moc"
