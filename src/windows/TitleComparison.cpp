// SPDX-License-Identifier: MIT

#include "windows/TitleComparison.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace trovell {

namespace {

bool isWordCharacter(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

/// Of a word that is not empty.
bool hasSeveralCharacters(QStringView word)
{
    // In the scripts up to here letters never join; asking the tables takes far longer.
    constexpr char16_t firstJoiningScript = 0x0900;
    if (word.size() == 1)
        return false;
    if (word[0] < QChar(firstJoiningScript) && word[1] < QChar(firstJoiningScript) &&
        word[1].isLetterOrNumber())
        return true;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
    return finder.toNextBoundary() < word.size();
}

char32_t characterAt(QStringView text, qsizetype position)
{
    const QChar first = text[position];
    if (first.isHighSurrogate() && position + 1 < text.size() &&
        text[position + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(first, text[position + 1]);
    return first.unicode();
}

/// From `begin` on, as long as the characters belong to a word, or do not.
qsizetype endOfRun(QStringView text, qsizetype begin, bool isWord)
{
    qsizetype position = begin;
    while (position < text.size()) {
        const char32_t character = characterAt(text, position);
        if (isWordCharacter(character) != isWord)
            break;
        position += QChar::requiresSurrogates(character) ? 2 : 1;
    }
    return position;
}

/// Calls `take` with where each word begins, and the word.
template <class Take> void forEachWord(const QString& text, Take take)
{
    for (qsizetype begin = 0; begin < text.size();) {
        begin = endOfRun(text, begin, false);
        const qsizetype end = endOfRun(text, begin, true);
        if (end > begin)
            take(begin, QStringView(text).sliced(begin, end - begin));
        begin = end;
    }
}

quint64 lettersOf(const QString& text)
{
    quint64 letters = 0;
    for (const QChar letter : text)
        letters |= quint64(1) << (letter.unicode() % 64);
    return letters;
}

bool contains(const QString& outer, const QString& inner)
{
    // Mostly something was appended to a title, and comparing takes less than searching.
    return outer.startsWith(inner) || outer.contains(inner);
}

} // namespace

TitleComparison::TitleComparison(const QStringList& wanted, const QStringList& actual,
                                 const QString& silent)
    : m_silentName(silent)
{
    forEachWord(m_silentName, [this](qsizetype, QStringView word) { m_silentWords.insert(word); });
    m_wanted = prepared(wanted);
    m_actual = prepared(actual);
    m_commonWords.assign(m_wanted.size() * m_actual.size(), 0);
    countCommonWords();
}

std::vector<TitleComparison::Title> TitleComparison::prepared(const QStringList& texts)
{
    std::vector<Title> titles;
    titles.reserve(size_t(texts.size()));
    for (const QString& text : texts)
        titles.push_back({text, wordsOf(text), lettersOf(text)});
    return titles;
}

std::vector<size_t> TitleComparison::wordsOf(const QString& text)
{
    std::vector<size_t> words;
    forEachWord(text, [&](qsizetype begin, QStringView word) {
        if (hasSeveralCharacters(word) && !isSilent(text, begin, word))
            words.push_back(numberOf(word));
    });
    std::ranges::sort(words);
    words.erase(std::ranges::unique(words).begin(), words.end());
    return words;
}

bool TitleComparison::isSilent(const QString& text, qsizetype begin, QStringView word) const
{
    constexpr qsizetype longestEnding = 5;
    const bool isEnding = begin > 1 && text[begin - 1] == u'.' && !text[begin - 2].isSpace() &&
                          word.size() <= longestEnding;
    return !m_silentName.isEmpty() && (isEnding || m_silentWords.contains(word));
}

size_t TitleComparison::numberOf(QStringView word)
{
    auto known = m_vocabulary.constFind(word);
    if (known == m_vocabulary.cend())
        known = m_vocabulary.insert(word, size_t(m_vocabulary.size()));
    return *known;
}

void TitleComparison::countCommonWords()
{
    std::vector<std::vector<size_t>> titlesOfWord(size_t(m_vocabulary.size()));
    for (size_t actual = 0; actual < m_actual.size(); ++actual) {
        for (const size_t word : m_actual[actual].words)
            titlesOfWord[word].push_back(actual);
    }
    for (size_t wanted = 0; wanted < m_wanted.size(); ++wanted) {
        for (const size_t word : m_wanted[wanted].words) {
            for (const size_t actual : titlesOfWord[word])
                ++m_commonWords[wanted * m_actual.size() + actual];
        }
    }
}

double TitleComparison::similarity(qsizetype wanted, qsizetype actual) const
{
    const Title& a = m_wanted[size_t(wanted)];
    const Title& b = m_actual[size_t(actual)];
    const size_t commonWords = m_commonWords[size_t(wanted) * m_actual.size() + size_t(actual)];
    if (a.text.isEmpty() || b.text.isEmpty())
        return 0;
    if ((mayContain(a, b, commonWords) && contains(a.text, b.text)) ||
        (mayContain(b, a, commonWords) && contains(b.text, a.text)))
        return contained;
    if (a.words.empty() || b.words.empty())
        return 0;
    return double(commonWords) / double(std::max(a.words.size(), b.words.size()));
}

bool TitleComparison::mayContain(const Title& outer, const Title& inner, size_t commonWords)
{
    // Only the first and the last word of the inner title can be parts of longer words.
    constexpr size_t cutWords = 2;
    return inner.text.size() <= outer.text.size() && inner.words.size() <= commonWords + cutWords &&
           (inner.letters & ~outer.letters) == 0;
}

} // namespace trovell
