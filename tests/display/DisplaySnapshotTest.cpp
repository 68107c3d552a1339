// SPDX-License-Identifier: MIT
//
// The choice among attached displays: see WindowRestoreServiceTest and LayoutTest.
#include "display/DisplaySnapshot.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

DisplayFingerprint fingerprint(const char* name, double width, double height, double scale,
                               double x, double y, bool isMain)
{
    const auto pixels = [scale](double points) { return qint64(points * scale); };
    return {QString::fromLatin1(name),
            pixels(width),
            pixels(height),
            width,
            height,
            scale,
            x,
            y,
            isMain};
}

const DisplayFingerprint laptop = fingerprint("A", 1512, 982, 2, 0, 0, true);

} // namespace

class DisplaySnapshotTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void positionsAreRelativeToTheMainScreen()
    {
        const QList<Screen> screens{
            {{-1280, 200, 1280, 1024}, {-1280, 200, 1280, 1000}, 1.5, u"Left"_s},
            {{0, 0, 1600, 900}, {0, 30, 1600, 870}, 1, u"Main"_s},
        };
        const auto snapshots = makeDisplaySnapshots(screens, 1);
        QCOMPARE(snapshots.at(0).fingerprint,
                 (DisplayFingerprint{u"Left"_s, 1920, 1536, 1280, 1024, 1.5, -1280, 200, false}));
        QVERIFY(snapshots.at(1).fingerprint.isMain);
        QCOMPARE(snapshots.at(1).visibleFrame, QRectF(0, 30, 1600, 870));

        const auto withoutMain = makeDisplaySnapshots({screens.at(1), screens.at(0)}, std::nullopt);
        QVERIFY(!withoutMain.at(0).fingerprint.isMain);
        QCOMPARE(withoutMain.at(1).fingerprint.relativeX, -1280.0);
    }

    void scoresByNameRoleSizeScaleAndPosition()
    {
        const auto score = [](auto change) {
            DisplayFingerprint changed = laptop;
            change(changed);
            return displayMatchScore(laptop, changed);
        };
        QCOMPARE(score([](auto& d) { d.pixelWidth = 7; }), 100.0); // does not count
        QCOMPARE(score([](auto& d) { d.isMain = false; }), 80.0);
        QCOMPARE(score([](auto& d) { d.localizedName = u"a"_s; }), 65.0);
        QCOMPARE(score([](auto& d) { d.backingScaleFactor = 5; }), 90.0);
        QCOMPARE(score([](auto& d) { d.relativeX = 5000; }), 90.0);
        QCOMPARE(score([](auto& d) { d.relativeX = qQNaN(); }), 90.0);
        QCOMPARE(displayMatchScore(laptop, fingerprint("B", 2560, 1440, 1, 1512, 0, false)), 12.38);
    }

    void survivesItsStoredForm()
    {
        DisplayFingerprint saved = fingerprint("", 2560.5, 1440, 1.25, -0.1, 1e300, true);
        saved.localizedName = u"Größe \"27\" 日本\n"_s;
        saved.pixelWidth = 9007199254740993; // beyond what a double can hold
        QCOMPARE(decodeFingerprint(encodeFingerprint(saved)), saved);
        saved.pointWidth = std::numeric_limits<double>::infinity();
        QVERIFY(encodeFingerprint(saved).isEmpty());
    }

    void readsDamagedBytesAsTheFallback()
    {
        const QByteArray whole = encodeFingerprint(laptop);
        const auto changed = [&whole](const char* from, const char* to) {
            return QByteArray(whole).replace(from, to);
        };
        for (const QByteArray& bytes :
             {QByteArray(), whole.left(whole.size() / 2), QByteArray("[1]"),
              QByteArray("\xff\xfe{}", 4), changed("\"isMain\"", "\"main\""),
              changed("1512,", "\"1512\","), changed("true", "1"),
              changed("\"pixelWidth\":3024", "\"pixelWidth\":3024.5")})
            QCOMPARE(decodeFingerprint(bytes), fallbackFingerprint());
    }
};

QTEST_GUILESS_MAIN(DisplaySnapshotTest)
#include "DisplaySnapshotTest.moc"
