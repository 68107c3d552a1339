#include "windows/WindowMatching.h"

#include <QtTest>

using namespace trovell;

namespace {

using OptionalText = std::optional<QString>;

WindowMatchRequest request(const OptionalText& title, qint64 index = 0)
{
    return {QUuid::createUuid(), title, QStringLiteral("AXWindow"), std::nullopt, index};
}

WindowMatchCandidate candidate(const OptionalText& title, qint64 index = 0)
{
    return {index, title, QStringLiteral("AXWindow"), QStringLiteral("AXStandardWindow")};
}

} // namespace

class WindowMatchingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void normalizesTitles()
    {
        QCOMPARE(normalizedTitle(u"\n ÉTÉ – Ångström\t"_qs), normalizedTitle(u"ete – angstrom"_qs));
        QCOMPARE(normalizedTitle(u"Cafe\u0301"_qs), normalizedTitle(u"caf\u00e9"_qs));
        // Marks that are letters of their own scripts stay.
        QVERIFY(normalizedTitle(u"が"_qs) != normalizedTitle(u"か"_qs));
        QVERIFY(normalizedTitle(u"की"_qs) != normalizedTitle(u"का"_qs));
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
        verify("equal after folding", u"Inbox – Work"_qs, u"inbox – work"_qs, 7, 3, 3, 1020);
        verify("contained", u"Quarterly Report Q3"_qs, u"Quarterly Report Q3 – Edited"_qs, 7, 2, 2,
               470);
        verify("half the words", u"report q3 2024"_qs, u"budget 2024 q3 summary"_qs, 7, 2, 2, 270);
        verify("too few words", u"report q3 2024"_qs, u"budget 2023 q3 summary"_qs, 0, 1, 1,
               unusable);
        verify("words of one grapheme", u"कि b"_qs, u"कि d"_qs, 0, 1, 1, unusable);
        verify("words of two graphemes", u"日本 b"_qs, u"日本 d"_qs, 0, 1, 1, 560);
        verify("single untitled window", u"Inbox"_qs, u""_qs, 0, 1, 1, 100);
        verify("one of two untitled windows", u"Inbox"_qs, std::nullopt, 0, 1, 2, unusable);
        verify("untitled, several, at its index", std::nullopt, u"Inbox"_qs, 0, 2, 3, 60);
        verify("untitled, several, elsewhere", u""_qs, u"Inbox"_qs, 1, 2, 3, unusable);
        verify("untitled, alone, elsewhere", u" \n"_qs, u"Inbox"_qs, 1, 1, 3, 20);
    }

    void rolesMustBeMet()
    {
        WindowMatchRequest wanted = request(u"Inbox"_qs);
        WindowMatchCandidate window = candidate(u"Inbox"_qs);
        wanted.subrole = QStringLiteral("AXDialog");
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
        const auto second = request(u"Notes"_qs, 4);
        const auto first = request(u"Notes"_qs, 2);
        const QList<WindowMatchCandidate> one{candidate(u"Notes"_qs, 0)};
        QCOMPARE(assignWindows({untitled, second, first}, one),
                 (QHash<QUuid, qsizetype>{{first.id, 0}}));

        // Two windows of one title go to the placements saved at their positions.
        const QList<WindowMatchCandidate> two{candidate(u"Notes"_qs, 4), candidate(u"Notes"_qs, 2)};
        QCOMPARE(assignWindows({second, first}, two),
                 (QHash<QUuid, qsizetype>{{first.id, 1}, {second.id, 0}}));
    }

    void untitledPlacementsKeepTheirPositions()
    {
        const auto first = request(std::nullopt, 0);
        const auto second = request(std::nullopt, 1);
        const QList<WindowMatchCandidate> windows{candidate(u"c"_qs, 2), candidate(u"b"_qs, 1),
                                                  candidate(u"a"_qs, 0)};
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
        const QStringList titles{QString(),          u"Inbox"_qs,        u"Inbox – Work"_qs,
                                 u"report q3"_qs,    u"Report Q3 v2"_qs, u"日本語 メモ"_qs,
                                 u"notes to self"_qs};
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
