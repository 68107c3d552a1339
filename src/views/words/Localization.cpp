// SPDX-License-Identifier: MIT

#include "views/words/Localization.h"

#include "views/words/LogicTexts.h"
#include "views/words/TranslationTables.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <QTranslator>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

struct Recognised {
    QString key;
    QString payload;
};

/// The first of `patterns`, each with one "%@", that `text` could have been made from.
template <size_t count>
std::optional<Recognised> recognised(const std::array<std::u16string_view, count>& patterns,
                                     const QString& text)
{
    for (const QStringView pattern : patterns) {
        const qsizetype at = pattern.indexOf(u"%@");
        const QStringView before = pattern.first(at);
        const QStringView after = pattern.sliced(at + 2);
        const qsizetype payloadSize = text.size() - before.size() - after.size();
        if (payloadSize >= 0 && text.startsWith(before) && text.endsWith(after))
            return Recognised{pattern.toString(), text.sliced(before.size(), payloadSize)};
    }
    return std::nullopt;
}

} // namespace

QStringList translationFolders()
{
    const QString folder = u"trovell/translations"_s;
    QStringList folders = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, folder,
                                                    QStandardPaths::LocateDirectory);
    const QString prefix = QCoreApplication::applicationDirPath() + u"/../share/"_s;
    folders.append(QDir::cleanPath(prefix + folder));
    folders.append(u":/trovell/translations"_s);
    folders.removeDuplicates();
    return folders;
}

Localization::Localization(const QStringList& folders, std::function<QLocale()> systemLocale)
    : m_folders(folders), m_systemLocale(std::move(systemLocale))
{
    load();
}

Localization::~Localization() = default;

void Localization::setLanguage(const QString& localeTag)
{
    m_localeTag = localeTag;
    load();
    Q_EMIT
    languageChanged();
}

void Localization::refreshSystemLocale()
{
    if (!m_localeTag.isEmpty())
        return;
    const QLocale current = m_systemLocale();
    if (current != m_locale || current.uiLanguages() != m_systemLanguages)
        setLanguage({});
}

void Localization::load()
{
    const bool followsSystem = m_localeTag.isEmpty();
    m_locale = followsSystem ? m_systemLocale() : QLocale(m_localeTag);
    m_systemLanguages = followsSystem ? m_locale.uiLanguages() : QStringList();
    m_tables = std::make_unique<TranslationTables>(
        m_folders, followsSystem ? m_systemLanguages : QStringList{m_localeTag});
    loadToolkitTexts();
    QGuiApplication::setLayoutDirection(layoutDirection());
}

// The texts of Qt's own controls: the context menu of a field, the file panel.
void Localization::loadToolkitTexts()
{
    m_toolkitTexts = std::make_unique<QTranslator>();
    if (m_toolkitTexts->load(m_tables->language(), u"qtbase"_s, u"_"_s,
                             QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
        QCoreApplication::instance() != nullptr)
        QCoreApplication::installTranslator(m_toolkitTexts.get());
}

Qt::LayoutDirection Localization::layoutDirection() const
{
    return m_tables->language().textDirection();
}

QString Localization::text(const QString& key, const QList<qint64>& values) const
{
    return shown(key, QList<TextArgument>(values.begin(), values.end()));
}

// With one number the whole sentence has plural forms, with several each number has its own.
QString Localization::shown(const QString& key, const QList<TextArgument>& arguments) const
{
    const auto isNumber = &std::holds_alternative<NumberArgument, QString, NumberArgument>;
    const bool isPlural = std::ranges::count_if(arguments, isNumber) == 1;
    const auto only = std::ranges::find_if(arguments, isNumber);
    const QString found =
        isPlural ? m_tables->text(key, std::get<NumberArgument>(*only).value) : m_tables->text(key);
    QStringList values;
    for (const TextArgument& argument : arguments) {
        if (const auto* const value = std::get_if<NumberArgument>(&argument))
            values += isPlural ? number(*value) : numberPhrase(key, values.size() + 1, *value);
        else
            values += std::get<QString>(argument);
    }
    return filledIn(found.isNull() ? key : found, values);
}

QString Localization::numberPhrase(const QString& key, qsizetype position,
                                   NumberArgument argument) const
{
    const QString phrase = m_tables->numberPhrase(key, position, argument.value);
    return phrase.isEmpty() ? number(argument) : filledIn(phrase, {number(argument)});
}

QString Localization::number(NumberArgument argument) const
{
    QLocale locale = m_locale;
    if (!argument.isGrouped)
        locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale.toString(argument.value);
}

QString Localization::shownDetail(const QString& productText) const
{
    const auto detail = recognised(detailPatterns, productText);
    if (!detail)
        return text(productText);
    if (detail->key == storeOpeningFailure.text())
        return shown(detail->key, {text(detail->payload)});
    return shown(detail->key, {detail->payload});
}

QString Localization::shownNotice(const QString& productText) const
{
    const auto notice = recognised(noticePatterns, productText);
    return notice ? shown(notice->key, {notice->payload}) : productText;
}

QString Localization::shownResultName(const QString& name) const
{
    const bool isText = std::ranges::any_of(
        resultNames, [&name](QStringView resultName) { return resultName == name; });
    return isText ? text(name) : name;
}

QString Localization::shownShortcut(const QString& displayValue) const
{
    return text(displayValue);
}

void Localization::render(QObject* context, const std::function<void()>& show) const
{
    show();
    connect(this, &Localization::languageChanged, context, show);
}

} // namespace trovell
