// SPDX-License-Identifier: MIT

#include "preferences/AppLanguage.h"

#include <array>

namespace trovell {

namespace {

struct Language {
    AppLanguage language;
    const char* rawValue;
    const char16_t* displayName;
    const char* localeTag;
};

constexpr std::array languages{
    Language{AppLanguage::system, "system", u"", ""},
    Language{AppLanguage::english, "english", u"English", "en"},
    Language{AppLanguage::turkish, "turkish", u"Türkçe", "tr"},
    Language{AppLanguage::german, "german", u"Deutsch", "de"},
    Language{AppLanguage::french, "french", u"Français", "fr"},
    Language{AppLanguage::spanish, "spanish", u"Español", "es"},
    Language{AppLanguage::italian, "italian", u"Italiano", "it"},
    Language{AppLanguage::japanese, "japanese", u"日本語", "ja"},
    Language{AppLanguage::korean, "korean", u"한국어", "ko"},
    Language{AppLanguage::simplifiedChinese, "simplifiedChinese", u"简体中文", "zh-Hans"},
    Language{AppLanguage::brazilianPortuguese, "brazilianPortuguese", u"Português (Brasil)",
             "pt-BR"},
};

const Language& entry(AppLanguage language)
{
    return languages.at(size_t(language));
}

} // namespace

QList<AppLanguage> allLanguages()
{
    QList<AppLanguage> list;
    for (const Language& language : languages)
        list.append(language.language);
    return list;
}

QString rawValue(AppLanguage language)
{
    return QString::fromLatin1(entry(language).rawValue);
}

std::optional<AppLanguage> languageFromRawValue(const QString& text)
{
    for (const Language& language : languages) {
        if (QLatin1StringView(language.rawValue) == text)
            return language.language;
    }
    return std::nullopt;
}

Message displayName(AppLanguage language)
{
    if (language == AppLanguage::system)
        return u"System Default"_key;
    return Message::verbatim(QString::fromUtf16(entry(language).displayName));
}

QString localeTag(AppLanguage language)
{
    return QString::fromLatin1(entry(language).localeTag);
}

} // namespace trovell
