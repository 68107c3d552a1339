#include "display/DisplaySnapshot.h"

#include <QtTest>

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
    void scoresByNameRoleSizeScaleAndPosition();
    void choosesTheBestAttachedDisplay();
    void survivesItsStoredForm();
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

void DisplaySnapshotTest::scoresByNameRoleSizeScaleAndPosition()
{
    const auto score = [](auto change) {
        DisplayFingerprint changed = laptop;
        change(changed);
        return displayMatchScore(laptop, changed);
    };
    QCOMPARE(score([](auto& d) { d.pixelWidth = 7; }), 100.0); // does not count
    QCOMPARE(score([](auto& d) { d.isMain = false; }), 80.0);
    QCOMPARE(score([](auto& d) { d.localizedName = u"a"_qs; }), 65.0);
    QCOMPARE(score([](auto& d) { d.backingScaleFactor = 1.5; }), 95.0);
    QCOMPARE(score([](auto& d) { d.backingScaleFactor = 5; }), 90.0);
    QCOMPARE(score([](auto& d) { d.relativeX = 5000; }), 90.0);
    QCOMPARE(score([](auto& d) { d.relativeX = qQNaN(); }), 90.0);
    QCOMPARE(displayMatchScore(laptop, fingerprint("B", 2560, 1440, 1, 1512, 0, false)), 12.38);
    QCOMPARE(displayMatchScore(fallbackFingerprint(), fingerprint("C", 1440, 900, 2, 0, 0, true)),
             31.6);
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

void DisplaySnapshotTest::readsDamagedBytesAsTheFallback()
{
    const QByteArray whole = encodeFingerprint(laptop);
    const auto changed = [&whole](const char* from, const char* to) {
        return QByteArray(whole).replace(from, to);
    };
    for (const QByteArray& bytes : {QByteArray(), whole.left(whole.size() / 2), QByteArray("[1]"),
                                    QByteArray("\xff\xfe{}", 4), changed("\"isMain\"", "\"main\""),
                                    changed("1512,", "\"1512\","), changed("true", "1"),
                                    changed("\"pixelWidth\":3024", "\"pixelWidth\":3024.5")})
        QCOMPARE(decodeFingerprint(bytes), fallbackFingerprint());
}

QTEST_GUILESS_MAIN(DisplaySnapshotTest)
#include "DisplaySnapshotTest.moc"
