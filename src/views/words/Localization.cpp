// SPDX-License-Identifier: MIT

#include "views/words/Localization.h"

#include "views/words/TranslationTables.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <QTranslator>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

std::optional<qint64> onlyNumber(const std::vector<Message>& arguments)
{
    std::optional<qint64> only;
    for (const Message& argument : arguments) {
        if (argument.number() && only)
            return std::nullopt;
        if (argument.number())
            only = argument.number()->value;
    }
    return only;
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

// With one number the whole sentence has plural forms, with several each number has its own.
QString Localization::text(const Message& message) const
{
    if (!message.isKey())
        return message.number() ? number(*message.number()) : message.text();
    const std::optional<qint64> count = onlyNumber(message.arguments());
    const QString found = m_tables->text(message.text(), count);
    QStringList values;
    for (const Message& argument : message.arguments())
        values += count || !argument.number()
                      ? text(argument)
                      : numberPhrase(message.text(), values.size() + 1, *argument.number());
    return filledIn(found.isNull() ? message.text() : found, values);
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

void Localization::render(QObject* context, const std::function<void()>& show) const
{
    show();
    connect(this, &Localization::languageChanged, context, show);
}

} // namespace trovell
