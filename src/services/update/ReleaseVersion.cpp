// SPDX-License-Identifier: MIT

#include "services/update/ReleaseVersion.h"

#include <QRegularExpression>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maximumTextLength = 100;

/// "0" becomes the empty text, so that the longer of two numbers is the greater one.
QString withoutLeadingZeros(const QString& digits)
{
    const auto first =
        std::find_if(digits.begin(), digits.end(), [](QChar digit) { return digit != u'0'; });
    return QString(first, digits.end() - first);
}

} // namespace

std::optional<ReleaseVersion> ReleaseVersion::parse(const QString& text)
{
    static const QRegularExpression grammar(QRegularExpression::anchoredPattern(
        u"[vV]?([0-9]+(?:\\.[0-9]+)*)"
        u"((?:-[0-9A-Za-z]+|\\.?[A-Za-z][0-9A-Za-z]*)(?:[.-][0-9A-Za-z]+)*)?"
        u"(?:\\+[0-9A-Za-z.-]+)?"_s));
    if (text.size() > maximumTextLength)
        return std::nullopt;
    const QRegularExpressionMatch match = grammar.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    ReleaseVersion version;
    version.m_numbers = runs(match.captured(1));
    while (!version.m_numbers.isEmpty() && version.m_numbers.constLast().text.isEmpty())
        version.m_numbers.removeLast();
    version.m_preRelease = runs(match.captured(2));
    return version;
}

QList<ReleaseVersion::Run> ReleaseVersion::runs(const QString& text)
{
    static const QRegularExpression run(u"([0-9]+)|([A-Za-z]+)"_s);
    QList<Run> found;
    for (auto match = run.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch next = match.next();
        const bool isWord = next.hasCaptured(2);
        found.append(
            {isWord, isWord ? next.captured().toLower() : withoutLeadingZeros(next.captured())});
    }
    return found;
}

std::strong_ordering ReleaseVersion::Run::operator<=>(const Run& other) const
{
    if (isWord != other.isWord)
        return isWord <=> other.isWord;
    if (!isWord && text.size() != other.text.size())
        return text.size() <=> other.text.size();
    return text.compare(other.text) <=> 0;
}

std::strong_ordering ReleaseVersion::operator<=>(const ReleaseVersion& other) const
{
    const auto inOrder = [](const QList<Run>& left, const QList<Run>& right) {
        return std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(),
                                                      right.end());
    };
    if (const auto order = inOrder(m_numbers, other.m_numbers); order != 0)
        return order;
    if (m_preRelease.isEmpty() != other.m_preRelease.isEmpty())
        return m_preRelease.isEmpty() <=> other.m_preRelease.isEmpty();
    return inOrder(m_preRelease, other.m_preRelease);
}

} // namespace trovell
