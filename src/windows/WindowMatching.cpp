// SPDX-License-Identifier: MIT

#include "windows/WindowMatching.h"

#include "windows/TitleComparison.h"

#include <QLocale>

#include <algorithm>
#include <vector>

namespace trovell {

namespace {

bool isDiacritic(QChar character)
{
    // The blocks of combining diacritics only: the marks of other scripts are vowels and tones,
    // which tell words apart.
    const ushort code = character.unicode();
    return (code >= 0x0300 && code <= 0x036F) || (code >= 0x1AB0 && code <= 0x1AFF) ||
           (code >= 0x1DC0 && code <= 0x1DFF) || (code >= 0x20D0 && code <= 0x20FF) ||
           (code >= 0xFE20 && code <= 0xFE2F);
}

/// A saved role or subrole must be met exactly; an absent one asks for nothing.
bool isMet(const std::optional<QString>& wanted, const std::optional<QString>& actual)
{
    return !wanted || wanted == actual;
}

struct MatchingSize {
    qsizetype requests = 0;
    qsizetype candidates = 0;
};

std::optional<double> untitledScore(bool isAtSavedIndex, MatchingSize size)
{
    if (size.requests < 2)
        return isAtSavedIndex ? 60 : 20;
    return isAtSavedIndex ? std::optional(60.0) : std::nullopt;
}

/// Longer titles differ, if at all, before that.
constexpr qsizetype comparedLength = 400;

template <class Entry>
QStringList normalizedTitles(const QList<Entry>& entries, std::optional<QString> Entry::* title)
{
    QStringList titles;
    for (const Entry& entry : entries)
        titles.append(normalizedTitle((entry.*title).value_or(QString()).left(comparedLength)));
    return titles;
}

/// Scores the pairs of the given requests and candidates.
class PairScores {
public:
    PairScores(const QList<WindowMatchRequest>& requests,
               const QList<WindowMatchCandidate>& candidates, MatchingSize size,
               const MatchingRules& rules = {})
        : m_requests(requests), m_candidates(candidates), m_size(size), m_rules(rules),
          m_wantedTitles(normalizedTitles(requests, &WindowMatchRequest::titleHint)),
          m_actualTitles(normalizedTitles(candidates, &WindowMatchCandidate::title)),
          m_comparison(m_wantedTitles, m_actualTitles, normalizedTitle(rules.applicationName))
    {
    }

    std::optional<double> score(qsizetype request, qsizetype candidate) const
    {
        const WindowMatchRequest& wanted = m_requests.at(request);
        const WindowMatchCandidate& actual = m_candidates.at(candidate);
        if (!isMet(wanted.role, actual.role) || !isMet(wanted.subrole, actual.subrole))
            return std::nullopt;
        const bool isAtSavedIndex = actual.index == wanted.indexHint;
        if (m_wantedTitles.at(request).isEmpty())
            return untitledScore(isAtSavedIndex, m_size);
        return titledScore(request, candidate, isAtSavedIndex ? 40 : 0);
    }

private:
    std::optional<double> titledScore(qsizetype request, qsizetype candidate,
                                      double indexBonus) const
    {
        const QString& actual = m_actualTitles.at(candidate);
        if (m_wantedTitles.at(request) == actual)
            return 1020 + indexBonus;
        const double similarity = m_comparison.similarity(request, candidate);
        if (similarity >= (m_rules.takesWords ? 0.45 : TitleComparison::contained))
            return 500 * similarity + 20 + indexBonus;
        if (actual.isEmpty() && m_size.requests == 1 && m_size.candidates == 1)
            return 100;
        return std::nullopt;
    }

    const QList<WindowMatchRequest>& m_requests;
    const QList<WindowMatchCandidate>& m_candidates;
    MatchingSize m_size;
    MatchingRules m_rules;
    QStringList m_wantedTitles;
    QStringList m_actualTitles;
    TitleComparison m_comparison;
};

/// Titled placements first, as stored; then by saved index; then as given.
QList<WindowMatchRequest> inServingOrder(QList<WindowMatchRequest> requests)
{
    const auto isUntitled = [](const WindowMatchRequest& request) {
        return !request.titleHint || request.titleHint->isEmpty();
    };
    std::ranges::stable_sort(requests, [&isUntitled](const auto& a, const auto& b) {
        return std::pair(isUntitled(a), a.indexHint) < std::pair(isUntitled(b), b.indexHint);
    });
    return requests;
}

} // namespace

QString normalizedTitle(const std::optional<QString>& title)
{
    // The locale lowers first (dotted and dotless i), then folding unites what is left.
    const QString folded = QLocale().toLower(title.value_or(QString())).toCaseFolded();
    QString decomposed = folded.normalized(QString::NormalizationForm_D);
    decomposed.removeIf(&isDiacritic);
    return decomposed.normalized(QString::NormalizationForm_C).trimmed();
}

double titleSimilarity(const QString& a, const QString& b)
{
    return TitleComparison({a}, {b}).similarity(0, 0);
}

std::optional<double> matchScore(const WindowMatchRequest& request,
                                 const WindowMatchCandidate& candidate, qsizetype requestCount,
                                 qsizetype candidateCount)
{
    const QList requests{request};
    const QList candidates{candidate};
    return PairScores(requests, candidates, {requestCount, candidateCount}).score(0, 0);
}

QHash<QUuid, qsizetype> assignWindows(const QList<WindowMatchRequest>& requests,
                                      const QList<WindowMatchCandidate>& candidates,
                                      const MatchingRules& rules)
{
    const QList<WindowMatchRequest> ordered = inServingOrder(requests);
    const PairScores scores(ordered, candidates, {requests.size(), candidates.size()}, rules);
    QHash<QUuid, qsizetype> assignments;
    std::vector<bool> isTaken(size_t(candidates.size()), false);
    for (qsizetype request = 0; request < ordered.size(); ++request) {
        std::optional<qsizetype> best;
        std::optional<double> bestScore;
        for (qsizetype position = 0; position < candidates.size(); ++position) {
            if (isTaken[size_t(position)])
                continue;
            const auto score = scores.score(request, position);
            // An absent optional compares below every score.
            if (score > bestScore) {
                best = position;
                bestScore = score;
            }
        }
        if (best) {
            isTaken[size_t(*best)] = true;
            assignments.insert(ordered.at(request).id, *best);
        }
    }
    return assignments;
}

} // namespace trovell
