// SPDX-License-Identifier: MIT

#include "views/words/TranslationTables.h"

#include <QTranslator>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr int noNumber = -1;

/// "zh-CN" → "zh_CN", "zh_Hans", "zh".
QStringList tableNames(const QString& tag)
{
    QStringList names;
    QStringList parts = tag.split(u'-');
    for (; parts.size() > 1; parts.removeLast())
        names.append(parts.join(u'_'));
    const QLocale locale(tag);
    names.append(parts.first() + u'_' + QLocale::scriptToCode(locale.script()));
    names.append(parts.first());
    return names;
}

/// A count of the same plural form in every language: the rules look at the last digits.
int pluralCount(qint64 number)
{
    constexpr quint64 period = 1'000'000;
    const quint64 size = number < 0 ? quint64(0) - quint64(number) : quint64(number);
    return int(size < period ? size : period + size % period);
}

QString lookUp(const QTranslator& table, const QByteArray& context, const QString& key, int number)
{
    return table.translate(context.constData(), key.toUtf8().constData(), nullptr, number);
}

} // namespace

TranslationTables::TranslationTables(const QStringList& folders, const QStringList& languages)
{
    const QString english = u"en"_s;
    QStringList names;
    for (const QString& tag : languages)
        names += tableNames(tag);
    const auto found =
        std::ranges::find_if(names, [&](const QString& name) { return append(folders, name); });
    if (found != names.end())
        m_language = QLocale(m_tables.front()->language());
    if (found == names.end() || *found != english)
        append(folders, english);
}

TranslationTables::~TranslationTables() = default;

bool TranslationTables::append(const QStringList& folders, const QString& name)
{
    const size_t before = m_tables.size();
    for (const QString& folder : folders) {
        auto table = std::make_unique<QTranslator>();
        if (table->load(folder + u"/trovell_"_s + name + u".qm"_s))
            m_tables.push_back(std::move(table));
    }
    return m_tables.size() > before;
}

QString TranslationTables::text(const QString& key, std::optional<qint64> number) const
{
    for (const auto& table : m_tables) {
        QString found = lookUp(*table, "Trovell", key, number ? pluralCount(*number) : noNumber);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

QString TranslationTables::numberPhrase(const QString& key, qsizetype position, qint64 number) const
{
    const QByteArray context = "Trovell, number " + QByteArray::number(position);
    for (const auto& table : m_tables) {
        if (!lookUp(*table, "Trovell", key, noNumber).isEmpty())
            return lookUp(*table, context, key, pluralCount(number));
    }
    return {};
}

} // namespace trovell
