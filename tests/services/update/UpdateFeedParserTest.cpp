// SPDX-License-Identifier: MIT
//
// An item with all that it may hold: see SignUpdateTest.
#include "services/update/UpdateFeedParser.h"

#include "services/update/UpdateChoice.h"
#include "support/UpdatePublisher.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::test;

namespace {

QByteArray inChannel(const QByteArray& xml)
{
    return "<rss xmlns:trovell='urn:x-trovell:update-feed'><channel>" + xml + "</channel></rss>";
}

/// `element` opened and closed `depth` times.
QByteArray nested(const QByteArray& element, int depth)
{
    return ("<" + element + ">").repeated(depth) + ("</" + element + ">").repeated(depth);
}

QByteArray manyAttributes(int count)
{
    QByteArray tag = "<x";
    for (int number = 0; number < count; ++number)
        tag += " a" + QByteArray::number(number) + "=''";
    return tag + "/>";
}

QList<PublishedItem> manyItems(int count)
{
    QList<PublishedItem> items;
    for (int number = 0; number < count; ++number)
        items.append({.version = QString::number(number)});
    return items;
}

ReleaseVersion version(const QString& text)
{
    return *ReleaseVersion::parse(text);
}

bool isRefused(const QByteArray& feed, UpdateError error)
{
    const auto items = parseUpdateFeed(feed);
    return !items && items.error() == error;
}

} // namespace

class UpdateFeedParserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// The feed reaches the XML parser in pieces that cut tags, texts and characters anywhere.
    void readsItemsInPieces()
    {
        for (int shift = 0; shift < 200; shift += 3) {
            PublishedItem item{.version = u" 2.1.0 "_s, .length = u"5000000000"_s, .signature = {}};
            item.notes = QString(4'000 + shift, u'€') + u"\n  • x"_s;
            const auto items = parseUpdateFeed(feedOf({item, {.version = u"3"_s}}));
            QVERIFY(items.has_value());
            QCOMPARE(items->size(), 2);
            const UpdateItem expected{.version = version(u"2.1"_s),
                                      .shortVersion = u"2.1.0"_s,
                                      .notes = item.notes,
                                      .address = QUrl(item.address),
                                      .lengthBytes = 5'000'000'000,
                                      .signature = {},
                                      .minimumSystemVersion = {}};
            QCOMPARE(items->at(0), expected);
        }
    }

    void acceptsWhatIsWithinTheLimits()
    {
        const auto count = [](const QByteArray& feed) {
            const auto items = parseUpdateFeed(feed);
            return items ? items->size() : -1;
        };
        QCOMPARE(count("\xEF\xBB\xBF" + feedOf({PublishedItem()})), 1);
        QCOMPARE(count(inChannel("<y:item xmlns:y='other'><y:version>1</y:version></y:item>")), 0);
        QCOMPARE(count(feedOf(manyItems(feedlimits::items))), feedlimits::items);
        QCOMPARE(count(inChannel(nested("x", feedlimits::depth - 2))), 0);
        QCOMPARE(count(inChannel(manyAttributes(feedlimits::attributesOfAnElement))), 0);
    }

    void refusesItems()
    {
        const auto refused = [](const PublishedItem& item) {
            return isRefused(feedOf({{.version = u"1"_s}, item}), UpdateError::feedMalformed);
        };
        QVERIFY(refused({.version = {}}));
        QVERIFY(refused({.version = u"latest"_s}));
        for (const QString& length : {u""_s, u"0"_s, u"-1"_s, u"1e3"_s, u"9223372036854775808"_s})
            QVERIFY2(refused({.length = length}), qPrintable(length));
        QVERIFY(refused({.shortVersion = QString(101, u'x')}));
        for (const QString& extra :
             {u"<trovell:version>3</trovell:version>"_s, u"<description>a <b>b</b></description>"_s,
              u"<description>&nbsp;</description>"_s})
            QVERIFY2(refused({.extra = extra}), qPrintable(extra));
        QVERIFY(isRefused(feedOf({{}, {.version = u"2.0.0"_s}}), UpdateError::feedRepeatsVersion));
    }

    void refusesWhatIsNoFeed()
    {
        const QByteArray one = feedOf({PublishedItem()});
        for (const QByteArray& feed : {QByteArray(), QByteArray("<html><channel/></html>"),
                                       one + QByteArray(10'000, ' ') + "text", inChannel("&#0;")})
            QVERIFY2(isRefused(feed, UpdateError::feedMalformed), feed.left(100).constData());
        for (const char* feed :
             {"<!DOCTYPE rss [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><rss>&x;</rss>",
              "<!DOCTYPE rss [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;'>]><rss>&b;</rss>"})
            QVERIFY2(isRefused(feed, UpdateError::feedDeclaresEntities), feed);
        for (const QByteArray& feed :
             {QByteArray(one).replace("Trovell<", "\xFC<"), inChannel("\xC0\xAF")})
            QVERIFY(isRefused(feed, UpdateError::feedNotUtf8));
    }

    void refusesWhatIsTooMuch()
    {
        const QString longNotes =
            u"<description>"_s + u"<![CDATA[xxxxxxxxxx]]> "_s.repeated(9'000) + u"</description>"_s;
        // The tag of a megabyte would take half a minute if the XML parser were given all of it at
        // once.
        for (const QByteArray& feed :
             {inChannel(nested("x", feedlimits::depth - 1)), QByteArray("<rss>").repeated(100'000),
              inChannel(manyAttributes(feedlimits::attributesOfAnElement + 1)),
              inChannel(manyAttributes(90'000)),
              inChannel(QByteArray("<x/>").repeated(feedlimits::elements)),
              feedOf(manyItems(feedlimits::items + 1)),
              "<!--" + QByteArray(100'000, ' ') + "--><rss/>", feedOf({{.extra = longNotes}})})
            QVERIFY2(isRefused(feed, UpdateError::feedTooComplex), feed.left(100).constData());
        QVERIFY(
            isRefused(inChannel(QByteArray(feedlimits::bytes, ' ')), UpdateError::feedTooLarge));
    }

    void choosesTheNewestThatRuns()
    {
        // Offered are versions, or version@minimum system version.
        const auto choice = [](const QStringList& offered) {
            QList<PublishedItem> published;
            for (const QString& text : offered)
                published.append({.version = text.section(u'@', 0, 0),
                                  .minimumSystemVersion = text.section(u'@', 1, 1)});
            const auto items = parseUpdateFeed(feedOf(published));
            const UpdateChoice made = chooseUpdate(*items, version(u"1.5"_s), version(u"2.36"_s));
            return made.item ? made.item->shortVersion : made.reason.productText();
        };
        QCOMPARE(choice({u"1.9"_s, u"1.10"_s, u"1.10-rc"_s, u"0.1"_s}), u"1.10"_s);
        QCOMPARE(choice({u"3@2.37"_s, u"2@2.36"_s}), u"2"_s);
        const QString newest = u"You have the newest version of Trovell."_s;
        QCOMPARE(choice({}), newest);
        QCOMPARE(choice({u"1.5.0"_s}), newest);
        QCOMPARE(
            choice({u"1.4"_s, u"1.5-rc1"_s}),
            u"You have a newer version of Trovell than the newest one offered, which is 1.5-rc1."_s);
        QCOMPARE(
            choice({u"2@2.37"_s, u"1.4"_s}),
            u"Trovell 2 needs a newer system than this one. You have the newest version that runs "
            u"here."_s);
    }
};

QTEST_GUILESS_MAIN(UpdateFeedParserTest)
#include "UpdateFeedParserTest.moc"
