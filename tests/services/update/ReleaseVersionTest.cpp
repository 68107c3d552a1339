// SPDX-License-Identifier: MIT

#include "services/update/ReleaseVersion.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

ReleaseVersion version(const QString& text)
{
    const auto parsed = ReleaseVersion::parse(text);
    if (!parsed)
        qFatal("%s is no version.", qPrintable(text));
    return *parsed;
}

} // namespace

class ReleaseVersionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ordersRisingVersions()
    {
        const QStringList rising =
            u"0 0.0.1-alpha 0.0.1 0.9 0.10 1.0-1 1.0-2 1.0-10 1.0a 1.0-alpha.1 1.0-beta 1.0beta.0 "
            "1.0-beta.2 1.0-beta.10 1.0beta10x 1.0-BETB 1.0rc1 1.0 1.0.1 1.1 2 20261122 "
            "18446744073709551615 18446744073709551616"_s.split(u' ');
        for (qsizetype left = 0; left < rising.size(); ++left)
            for (qsizetype right = 0; right < rising.size(); ++right)
                QVERIFY2((version(rising[left]) <=> version(rising[right])) == (left <=> right),
                         qPrintable(rising[left] + u" and "_s + rising[right]));
    }

    void takesSpellingsForEqual()
    {
        const QStringList pairs =
            u"1.4=1.4.0.0 1.04=1.4 v1.4=1.4 1.4-RC1=1.4-rc1 1.4.0beta2=1.4-beta.2 1.4+7f3a=1.4 "
            "1.4-b+7f3a=1.4-b 0.0=0"_s.split(u' ');
        for (const QString& pair : pairs)
            QCOMPARE(version(pair.section(u'=', 0, 0)), version(pair.section(u'=', 1)));
    }

    void rejects()
    {
        const QStringList texts{
            u""_s,    u"v"_s,     u"beta"_s, u".1"_s,    u"1."_s,     u"1..2"_s,         u"-1"_s,
            u"1 2"_s, u" 1"_s,    u"1\n"_s,  u"1.2-"_s,  u"1.2-."_s,  u"1.2+"_s,         u"1.2b."_s,
            u"1,2"_s, u"1.2-ü"_s, u"١.٢"_s,  u"1.2/3"_s, u"1.2--3"_s, QString(101, u'1')};
        for (const QString& text : texts)
            QVERIFY2(!ReleaseVersion::parse(text), qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(ReleaseVersionTest)
#include "ReleaseVersionTest.moc"
