// SPDX-License-Identifier: MIT

#include "windows/WindowMatching.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

using OptionalText = std::optional<QString>;

WindowMatchRequest request(const OptionalText& title, qint64 index = 0)
{
    return {QUuid::createUuid(), title, u"AXWindow"_s, std::nullopt, index};
}

WindowMatchCandidate candidate(const OptionalText& title, qint64 index = 0)
{
    return {index, title, u"AXWindow"_s, u"AXStandardWindow"_s};
}

} // namespace

class WindowMatchingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void normalizesTitles()
    {
        QCOMPARE(normalizedTitle(u"\n ÉTÉ – Ångström\t"_s), normalizedTitle(u"ete – angstrom"_s));
        QCOMPARE(normalizedTitle(u"Cafe\u0301"_s), normalizedTitle(u"caf\u00e9"_s));
        // Marks that are letters of their own scripts stay.
        QVERIFY(normalizedTitle(u"が"_s) != normalizedTitle(u"か"_s));
        QVERIFY(normalizedTitle(u"की"_s) != normalizedTitle(u"का"_s));
        // Lone surrogates and other odd input are survived.
        QCOMPARE(normalizedTitle(QString(QChar(0xD800))).size(), 1);
    }

    void scores()
    {
        const double unusable = -1; // the window must not be taken
        const auto verify = [unusable](const char* name, const OptionalText& wanted,
                                       const OptionalText& actual, qint64 actualIndex, int requests,
                                       int candidates, double score) {
            const auto found =
                matchScore(request(wanted), candidate(actual, actualIndex), requests, candidates);
            QVERIFY2(qFuzzyCompare(found.value_or(unusable), score), name);
        };
        verify("equal after folding", u"Inbox – Work"_s, u"inbox – work"_s, 7, 3, 3, 1020);
        verify("contained", u"Quarterly Report Q3"_s, u"Quarterly Report Q3 – Edited"_s, 7, 2, 2,
               470);
        verify("half the words", u"report q3 2024"_s, u"budget 2024 q3 summary"_s, 7, 2, 2, 270);
        verify("too few words", u"report q3 2024"_s, u"budget 2023 q3 summary"_s, 0, 1, 1,
               unusable);
        verify("words of one grapheme", u"कि b"_s, u"कि d"_s, 0, 1, 1, unusable);
        verify("words of two graphemes", u"日本 b"_s, u"日本 d"_s, 0, 1, 1, 560);
        verify("single untitled window", u"Inbox"_s, u""_s, 0, 1, 1, 100);
        verify("one of two untitled windows", u"Inbox"_s, std::nullopt, 0, 1, 2, unusable);
        verify("untitled, several, at its index", std::nullopt, u"Inbox"_s, 0, 2, 3, 60);
        verify("untitled, several, elsewhere", u""_s, u"Inbox"_s, 1, 2, 3, unusable);
        verify("untitled, alone, elsewhere", u" \n"_s, u"Inbox"_s, 1, 1, 3, 20);
    }

    void rolesMustBeMet()
    {
        WindowMatchRequest wanted = request(u"Inbox"_s);
        WindowMatchCandidate window = candidate(u"Inbox"_s);
        wanted.subrole = u"AXDialog"_s;
        QVERIFY(!matchScore(wanted, window, 1, 1));
        window.subrole = std::nullopt;
        QVERIFY(!matchScore(wanted, window, 1, 1));
        wanted.subrole = std::nullopt;
        window.role = std::nullopt;
        QVERIFY(!matchScore(wanted, window, 1, 1));
        wanted.role = std::nullopt;
        QVERIFY(matchScore(wanted, window, 1, 1));
    }

    void servesTitledAndLowerPlacementsFirst()
    {
        const auto untitled = request(std::nullopt, 0);
        const auto second = request(u"Notes"_s, 4);
        const auto first = request(u"Notes"_s, 2);
        const QList<WindowMatchCandidate> one{candidate(u"Notes"_s, 0)};
        QCOMPARE(assignWindows({untitled, second, first}, one),
                 (QHash<QUuid, qsizetype>{{first.id, 0}}));

        // Two windows of one title go to the placements saved at their positions.
        const QList<WindowMatchCandidate> two{candidate(u"Notes"_s, 4), candidate(u"Notes"_s, 2)};
        QCOMPARE(assignWindows({second, first}, two),
                 (QHash<QUuid, qsizetype>{{first.id, 1}, {second.id, 0}}));
    }

    void untitledPlacementsKeepTheirPositions()
    {
        const auto first = request(std::nullopt, 0);
        const auto second = request(std::nullopt, 1);
        const QList<WindowMatchCandidate> windows{candidate(u"c"_s, 2), candidate(u"b"_s, 1),
                                                  candidate(u"a"_s, 0)};
        QCOMPARE(assignWindows({first, second}, windows),
                 (QHash<QUuid, qsizetype>{{first.id, 2}, {second.id, 1}}));
        // Alone, it takes the first window when its position is gone.
        QCOMPARE(assignWindows({second}, {windows.at(0), windows.at(2)}).value(second.id, -1), 0);
    }

    void randomDesktopsKeepTheInvariants()
    {
        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        const QStringList titles{QString(),         u"Inbox"_s,        u"Inbox – Work"_s,
                                 u"report q3"_s,    u"Report Q3 v2"_s, u"日本語 メモ"_s,
                                 u"notes to self"_s};
        const auto pick = [&] { return titles.at(random.bounded(int(titles.size()))); };
        for (int round = 0; round < 500; ++round) {
            QList<WindowMatchRequest> requests;
            QList<WindowMatchCandidate> candidates;
            // Different indices: among equals the given order decides, and shuffling would show.
            for (int i = random.bounded(8); i > 0; --i)
                requests.append(request(pick(), i));
            for (int i = random.bounded(8); i > 0; --i)
                candidates.append(candidate(pick(), i));

            const auto assignments = assignWindows(requests, candidates);
            QSet<qsizetype> taken;
            for (const WindowMatchRequest& wanted : std::as_const(requests)) {
                if (!assignments.contains(wanted.id))
                    continue;
                const qsizetype position = assignments.value(wanted.id);
                QVERIFY(!taken.contains(position));
                taken.insert(position);
                QVERIFY(matchScore(wanted, candidates.at(position), requests.size(),
                                   candidates.size()));
            }
            std::shuffle(requests.begin(), requests.end(), random);
            QCOMPARE(assignWindows(requests, candidates), assignments);
        }
    }
};

QTEST_GUILESS_MAIN(WindowMatchingTest)
#include "WindowMatchingTest.moc"
