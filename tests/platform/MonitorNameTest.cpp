#include "platform/x11/MonitorName.h"

#include "support/MakeEdid.h"

#include <QTest>

using namespace trovell;
using trovell::test::makeEdid;

class MonitorNameTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nameIsManufacturerAndModel();
};

void MonitorNameTest::nameIsManufacturerAndModel()
{
    QCOMPARE(monitorName(makeEdid("GSM", "ULTRAGEAR")), u"LG ULTRAGEAR"_qs);
    QCOMPARE(monitorName(makeEdid("DEL", "DELL U2720Q")), u"DELL U2720Q"_qs);
    QCOMPARE(monitorName(makeEdid("QQZ", "ABCDEFGHIJKLM")), u"QQZ ABCDEFGHIJKLM"_qs);
    QCOMPARE(monitorName(makeEdid("BOE", "", 0x07c9)), u"BOE 0x07c9"_qs);
    QCOMPARE(monitorName(makeEdid("GSM", "HDR 4K") + QByteArray(128, '\1')), u"LG HDR 4K"_qs);
    QCOMPARE(monitorName(QByteArray()), QString());
    QCOMPARE(monitorName(makeEdid("GSM", "HDR 4K").left(127)), QString());
}

QTEST_GUILESS_MAIN(MonitorNameTest)
#include "MonitorNameTest.moc"
