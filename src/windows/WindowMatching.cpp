#include "windows/WindowMatching.h"

#include <QLocale>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <vector>

namespace trovell {

namespace {

/// A normalized title with its words, prepared once for many comparisons.
struct PreparedTitle {
    QString text;
    QStringList words; ///< sorted, without duplicates
};

bool isWordCharacter(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

bool isDiacritic(QChar character)
{
    // The blocks of combining diacritics only: the marks of other scripts are vowels and tones,
    // which tell words apart.
    const ushort code = character.unicode();
    return (code >= 0x0300 && code <= 0x036F) || (code >= 0x1AB0 && code <= 0x1AFF) ||
           (code >= 0x1DC0 && code <= 0x1DFF) || (code >= 0x20D0 && code <= 0x20FF) ||
           (code >= 0xFE20 && code <= 0xFE2F);
}

bool hasSeveralCharacters(const QString& word)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
    return finder.toNextBoundary() < word.size();
}

QStringList wordsOf(const QString& text)
{
    QStringList words;
    QString word;
    const auto finishWord = [&words, &word] {
        if (!word.isEmpty() && hasSeveralCharacters(word))
            words.append(word);
        word.clear();
    };
    const QList<uint> characters = text.toUcs4();
    for (const char32_t character : characters) {
        if (isWordCharacter(character))
            word.append(QChar::fromUcs4(character));
        else
            finishWord();
    }
    finishWord();
    words.sort();
    words.removeDuplicates();
    return words;
}

PreparedTitle prepareTitle(const std::optional<QString>& title)
{
    QString text = normalizedTitle(title);
    QStringList words = wordsOf(text);
    return {std::move(text), std::move(words)};
}

qsizetype commonWordCount(const QStringList& a, const QStringList& b)
{
    qsizetype count = 0;
    for (auto i = a.begin(), j = b.begin(); i != a.end() && j != b.end();) {
        const int order = QString::compare(*i, *j);
        count += order == 0;
        i += order <= 0;
        j += order >= 0;
    }
    return count;
}

double similarity(const PreparedTitle& a, const PreparedTitle& b)
{
    if (a.text.isEmpty() || b.text.isEmpty())
        return 0;
    if (a.text.contains(b.text) || b.text.contains(a.text))
        return 0.9;
    if (a.words.isEmpty() || b.words.isEmpty())
        return 0;
    return double(commonWordCount(a.words, b.words)) /
           double(std::max(a.words.size(), b.words.size()));
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

std::optional<double> titledScore(const PreparedTitle& wanted, const PreparedTitle& actual,
                                  double indexBonus, MatchingSize size)
{
    if (wanted.text == actual.text)
        return 1020 + indexBonus;
    const double titleScore = similarity(wanted, actual);
    if (titleScore >= 0.45)
        return 500 * titleScore + 20 + indexBonus;
    if (actual.text.isEmpty() && size.requests == 1 && size.candidates == 1)
        return 100;
    return std::nullopt;
}

std::optional<double> untitledScore(bool isAtSavedIndex, MatchingSize size)
{
    if (size.requests < 2)
        return isAtSavedIndex ? 60 : 20;
    return isAtSavedIndex ? std::optional(60.0) : std::nullopt;
}

std::optional<double> preparedScore(const WindowMatchRequest& request, const PreparedTitle& wanted,
                                    const WindowMatchCandidate& candidate,
                                    const PreparedTitle& actual, MatchingSize size)
{
    if (!isMet(request.role, candidate.role) || !isMet(request.subrole, candidate.subrole))
        return std::nullopt;
    const bool isAtSavedIndex = candidate.index == request.indexHint;
    if (wanted.text.isEmpty())
        return untitledScore(isAtSavedIndex, size);
    return titledScore(wanted, actual, isAtSavedIndex ? 40 : 0, size);
}

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
    return similarity({a, wordsOf(a)}, {b, wordsOf(b)});
}

std::optional<double> matchScore(const WindowMatchRequest& request,
                                 const WindowMatchCandidate& candidate, qsizetype requestCount,
                                 qsizetype candidateCount)
{
    return preparedScore(request, prepareTitle(request.titleHint), candidate,
                         prepareTitle(candidate.title), {requestCount, candidateCount});
}

QHash<QUuid, qsizetype> assignWindows(const QList<WindowMatchRequest>& requests,
                                      const QList<WindowMatchCandidate>& candidates)
{
    const MatchingSize size{requests.size(), candidates.size()};
    std::vector<PreparedTitle> titles;
    titles.reserve(size_t(candidates.size()));
    for (const WindowMatchCandidate& candidate : candidates)
        titles.push_back(prepareTitle(candidate.title));

    QHash<QUuid, qsizetype> assignments;
    std::vector<bool> isTaken(titles.size(), false);
    const QList<WindowMatchRequest> ordered = inServingOrder(requests);
    for (const WindowMatchRequest& request : ordered) {
        const PreparedTitle wanted = prepareTitle(request.titleHint);
        std::optional<size_t> best;
        std::optional<double> bestScore;
        for (size_t position = 0; position < titles.size(); ++position) {
            if (isTaken[position])
                continue;
            const auto score = preparedScore(request, wanted, candidates.at(qsizetype(position)),
                                             titles[position], size);
            // An absent optional compares below every score.
            if (score > bestScore) {
                best = position;
                bestScore = score;
            }
        }
        if (best) {
            isTaken[*best] = true;
            assignments.insert(request.id, qsizetype(*best));
        }
    }
    return assignments;
}

} // namespace trovell
