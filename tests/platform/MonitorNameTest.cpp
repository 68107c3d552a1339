#include "platform/x11/MonitorName.h"

#include "support/MakeEdid.h"

#include <QTest>

using namespace trovell;
using trovell::test::makeEdid;

class MonitorNameTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nameIsManufacturerAndModel_data();
    void nameIsManufacturerAndModel();
};

void MonitorNameTest::nameIsManufacturerAndModel_data()
{
    QTest::addColumn<QByteArray>("edid");
    QTest::addColumn<QString>("name");
    QTest::newRow("known manufacturer") << makeEdid("GSM", "ULTRAGEAR") << u"LG ULTRAGEAR"_qs;
    QTest::newRow("model names it") << makeEdid("DEL", "DELL U2720Q") << u"DELL U2720Q"_qs;
    QTest::newRow("unknown manufacturer") << makeEdid("QQZ", "X1") << u"QQZ X1"_qs;
    QTest::newRow("as long as can be")
        << makeEdid("QQZ", "ABCDEFGHIJKLM") << u"QQZ ABCDEFGHIJKLM"_qs;
    QTest::newRow("panel without a name") << makeEdid("BOE", "", 0x07c9) << u"BOE 0x07c9"_qs;
    QTest::newRow("more blocks follow")
        << makeEdid("GSM", "HDR 4K") + QByteArray(128, '\1') << u"LG HDR 4K"_qs;
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("cut off") << makeEdid("GSM", "HDR 4K").left(127) << QString();
}

void MonitorNameTest::nameIsManufacturerAndModel()
{
    QFETCH(QByteArray, edid);
    QFETCH(QString, name);
    QCOMPARE(monitorName(edid), name);
}

QTEST_GUILESS_MAIN(MonitorNameTest)
#include "MonitorNameTest.moc"
