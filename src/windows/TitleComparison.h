// SPDX-License-Identifier: MIT
//
// How alike titles are, worked out for many placements and many windows with as little work as
// possible for each pair. Titles are normalized ones. Pure, any thread.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace trovell {

class TitleComparison {
public:
    /// The similarity of two titles of which one contains the other.
    static constexpr double contained = 0.9;

    /// Titles are told by their positions in these lists. Words of `silent`, unless that is empty,
    /// do not count, nor do the endings of file names then.
    TitleComparison(const QStringList& wanted, const QStringList& actual,
                    const QString& silent = {});

    /// 0 (nothing in common) to 1.
    [[nodiscard]] double similarity(qsizetype wanted, qsizetype actual) const;

private:
    struct Title {
        QString text;
        /// The numbers of its words, without duplicates.
        std::vector<size_t> words;
        /// One bit for each letter, several letters sharing one.
        quint64 letters = 0;
    };

    /// False only when the outer text cannot contain the inner one.
    [[nodiscard]] static bool mayContain(const Title& outer, const Title& inner,
                                         size_t commonWords);
    [[nodiscard]] std::vector<Title> prepared(const QStringList& texts);
    [[nodiscard]] std::vector<size_t> wordsOf(const QString& text);
    [[nodiscard]] size_t numberOf(QStringView word);
    void countCommonWords();

    [[nodiscard]] bool isSilent(const QString& text, qsizetype begin, QStringView word) const;

    QString m_silentName;
    /// Of that name; they have no numbers.
    QSet<QStringView> m_silentWords;
    /// Every word that occurs, with a number of its own. The texts belong to the titles.
    QHash<QStringView, size_t> m_vocabulary;
    std::vector<Title> m_wanted;
    std::vector<Title> m_actual;
    /// For each wanted title and each actual one: how many different words they share.
    std::vector<size_t> m_commonWords;
};

} // namespace trovell
