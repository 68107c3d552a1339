// SPDX-License-Identifier: MIT
//
// The compiled translation tables of one language with those of English behind them. Main thread.
//
// All keys stand in the context "Trovell". A key with one number is a message with plural forms. A
// key with several numbers is a plain message, and each of its numbers may have a phrase with
// plural forms of its own, under the same key in the context "Trovell, number 2": the key "%lld
// windows selected • %lld previous positions kept" may read "%1$@ • %2$@" with "%lld Fenster
// gewählt" and
// "%lld frühere Position behalten" / "%lld frühere Positionen behalten".
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class QTranslator;

namespace trovell {

class TranslationTables {
public:
    /// Of `languages`, BCP 47 tags, the first that has a table in any of `folders`.
    TranslationTables(const QStringList& folders, const QStringList& languages);
    ~TranslationTables();

    /// The language of the texts; English where no table was found.
    [[nodiscard]] QLocale language() const { return m_language; }

    /// In the plural form that a number asks for. Null when no table has the key.
    [[nodiscard]] QString text(const QString& key, std::optional<qint64> number) const;
    /// The phrase for the number at `position`, 1 for the first placeholder of the key; null when
    /// the table that has the sentence leaves the bare number to stand.
    [[nodiscard]] QString numberPhrase(const QString& key, qsizetype position, qint64 number) const;

private:
    bool append(const QStringList& folders, const QString& name);

    std::vector<std::unique_ptr<QTranslator>> m_tables;
    QLocale m_language{QLocale::English};
};

} // namespace trovell
