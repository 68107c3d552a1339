// SPDX-License-Identifier: MIT
//
// The texts of the interface in the language of the user. One object for the application, created
// at start and handed down. Main thread.
//
//     words.text(u"Save Layout"_key)
//     words.text(phrases::saved, workspace->name())
//     words.text(report.summary())
//     words.render(this, [this] { m_title->setText(m_words.text(u"Items"_key)); });
//
// A text is looked up in the table of the language, then in the English table, and is the key
// itself where neither has it.
#pragma once

#include "support/Message.h"
#include "support/TextKey.h"

#include <QList>
#include <QLocale>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QTranslator;

namespace trovell {

class TranslationTables;

/// Where tables are looked for, the first before the second: "trovell/translations" in the XDG data
/// folders and beside the program's own prefix, then the tables compiled into the program. A file
/// dropped into one of them adds a language or replaces texts of a compiled one.
[[nodiscard]] QStringList translationFolders();

class Localization : public QObject {
    Q_OBJECT

public:
    /// Starts with the language of the system. `systemLocale` is asked again on every change.
    explicit Localization(const QStringList& folders = translationFolders(),
                          std::function<QLocale()> systemLocale = &QLocale::system);
    ~Localization() override;

    /// `localeTag` is a BCP 47 tag such as "pt-BR", or empty to follow the user's locale. Loads the
    /// tables again even when the tag is the current one; then emits languageChanged.
    void setLanguage(const QString& localeTag);
    /// To be called when the user's locale may have changed: does what setLanguage does if the
    /// language follows it, else nothing.
    void refreshSystemLocale();

    [[nodiscard]] QString localeTag() const { return m_localeTag; }
    /// The locale in which numbers are written.
    [[nodiscard]] QLocale locale() const { return m_locale; }
    /// That of the language which the texts are really in, so that English shown for want of a
    /// table is not laid out from right to left. The application's layout direction follows it.
    [[nodiscard]] Qt::LayoutDirection layoutDirection() const;

    /// The text of a key with its values put in, in the plural form that its number asks for; words
    /// that are no key as they are.
    [[nodiscard]] QString text(const Message& message) const;
    template <Placeholder... kinds>
    [[nodiscard]] QString text(TextKey<kinds...> key, const ArgumentOf<kinds>&... arguments) const
    {
        return text(Message(key, arguments...));
    }

    /// Calls `show` now and on every change of the language until `context` is gone. `context`
    /// also stands for the thread: it must be an object of the main thread.
    void render(QObject* context, const std::function<void()>& show) const;
    /// Keeps the text of a label, a button or an action at that of a key.
    template <typename Widget> void renderText(Widget* widget, TextKey<> key) const
    {
        render(widget, [this, widget, key] { widget->setText(text(key)); });
    }

Q_SIGNALS:
    /// After all lookups answer in the new language and the layout direction has been set.
    void languageChanged();

private:
    void load();
    void loadToolkitTexts();
    [[nodiscard]] QString numberPhrase(const QString& key, qsizetype position,
                                       NumberArgument argument) const;
    [[nodiscard]] QString number(NumberArgument argument) const;

    QStringList m_folders;
    std::function<QLocale()> m_systemLocale;
    QString m_localeTag;
    QLocale m_locale;
    QStringList m_systemLanguages;
    std::unique_ptr<TranslationTables> m_tables;
    std::unique_ptr<QTranslator> m_toolkitTexts;
};

} // namespace trovell
