// SPDX-License-Identifier: MIT
//
// Looking texts up: languages, plural forms, placeholders and finished texts from the logic.
#include "views/words/Localization.h"
#include "model/WorkspaceChoices.h"
#include "views/words/Phrases.h"
#include "words/WidgetTexts.h"

#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

const QString testTables = QString::fromUtf8(TROVELL_TEST_TABLES);
const QString compiledTables = u":/trovell/translations"_s;

/// In the language of one of the tables beside this test, with the product's English behind it.
class TestWords : public Localization {
public:
    explicit TestWords(const QString& localeTag)
        : Localization({testTables, compiledTables}, [] { return QLocale(QLocale::English); })
    {
        setLanguage(localeTag);
    }
};

} // namespace

class LocalizationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void choosesTheTable()
    {
        const std::pair<QString, QString> tables[]{
            {u"de-AT"_s, u"Hell"_s},    {u"zh-Hans"_s, u"浅色"_s}, {u"zh-CN"_s, u"浅色"_s},
            {u"zh-Hant"_s, u"Light"_s}, {u"fi"_s, u"Light"_s},     {QString(), u"Light"_s}};
        for (const auto& [tag, light] : tables)
            QCOMPARE(TestWords(tag).text(u"Light"_key), light);
    }

    void followsTheSystem()
    {
        QLocale system(u"de_DE"_s);
        Localization words({testTables, compiledTables}, [&system] { return system; });
        QSignalSpy changed(&words, &Localization::languageChanged);
        QCOMPARE(words.text(u"Light"_key), u"Hell"_s);
        words.refreshSystemLocale();
        QCOMPARE(changed.count(), 0);
        system = QLocale(u"zh_CN"_s);
        words.refreshSystemLocale();
        QCOMPARE(words.text(u"Light"_key), u"浅色"_s);
        QCOMPARE(changed.count(), 1);
        words.setLanguage(u"en"_s);
        words.refreshSystemLocale();
        QCOMPARE(words.text(u"Light"_key), u"Light"_s);
    }

    void aFileAddsALanguage()
    {
        const QTemporaryDir folder;
        Localization words({folder.path(), compiledTables});
        words.setLanguage(u"nl"_s);
        QCOMPARE(words.text(u"Light"_key), u"Light"_s);
        QVERIFY(QFile::copy(testTables + u"/trovell_de.qm"_s, folder.filePath(u"trovell_nl.qm"_s)));
        words.setLanguage(u"nl"_s);
        QCOMPARE(words.text(u"Light"_key), u"Hell"_s);
    }

    void fallsBackKeyByKey()
    {
        const TestWords words(u"de"_s);
        QCOMPARE(words.text(u"Items"_key), u"Objekte"_s);
        QCOMPARE(words.text(phrases::motto), u"Your desktop, ready in one click."_s);
        QCOMPARE(words.text(u"Save Layout"_key), u"Save Layout"_s);
        QCOMPARE(words.text(u"Edit"_key), u"Edit"_s); // Its translation is not finished.
        QCOMPARE(words.text(phrases::created, u"Work"_s), u"Work created."_s);
    }

    void usesThePluralFormsOfTheLanguage()
    {
        const std::tuple<QString, qint64, QString> counts[]{
            {u"de"_s, 0, u"0 Objekte"_s},
            {u"de"_s, -1, u"-1 Objekt"_s},
            {u"pl"_s, 1, u"1 element"_s},
            {u"pl"_s, 3, u"3 elementy"_s},
            {u"pl"_s, 5, u"5 elementów"_s},
            {u"pl"_s, 12, u"12 elementów"_s},
            {u"pl"_s, 22, u"22 elementy"_s},
            {u"zh-Hans"_s, 7, u"7 个项目"_s},
            // More than an int holds.
            {u"de"_s, (qint64(1) << 32) + 1, u"4.294.967.297 Objekte"_s}};
        for (const auto& [tag, count, items] : counts)
            QCOMPARE(TestWords(tag).text(phrases::itemCount, count), items);
    }

    void givesEachOfSeveralNumbersItsOwnForm()
    {
        QCOMPARE(TestWords(u"de"_s).text(phrases::windowsSelectedAndPositionsKept, 2, 1),
                 u"1 Position behalten, 2 Fenster gewählt"_s);
        const auto summary = u"Completed %lld actions. %lld windows restored. "
                             u"Review %lld skipped or failed items."_key;
        const TestWords polish(u"pl"_s);
        QCOMPARE(polish.text(summary, 1, 2, 5), u"1 akcja • 2 okna • 5 wpisów"_s);
        QCOMPARE(polish.text(summary, 5, 1, 3), u"5 akcji • 1 okno • 3 wpisy"_s);
    }

    void writesNumbersAsTheLocaleDoes()
    {
        const TestWords german(u"de"_s);
        QCOMPARE(german.text(phrases::itemCount, 12345), u"12.345 Objekte"_s);
        QCOMPARE(german.text(phrases::currentTimeout, NumberArgument::plain(12345)),
                 u"Current timeout: 12345 seconds"_s);
        QCOMPARE(TestWords(u"ar"_s).text(phrases::selectedCount, 12), u"١٢ selected"_s);
    }

    void neverReadsAValueAsAPlaceholder()
    {
        const TestWords words(u"en"_s);
        QCOMPARE(words.text(u"%@ • %@"_key, u"%@ %lld %2$@"_s, u"last"_s),
                 u"%@ %lld %2$@ • last"_s);
        QCOMPARE(filledIn(u"100% of %@, 5 %lld"_s, {u"it"_s}), u"100% of it, 5 %lld"_s);
    }

    void keepsTheProductsTextForRecords()
    {
        QCOMPARE(Message(phrases::saved, u"Work"_s).productText(), u"Work saved."_s);
        QCOMPARE(Message(phrases::itemCount, 12345).productText(), u"12345 items"_s);
    }

    void putsMessagesIntoOneAnother()
    {
        const TestWords words(u"de"_s);
        const auto couldNotOpen = u"macOS could not open %@."_key;
        const auto damaged = u"The workspace file is damaged."_key;
        const std::pair<Message, QString> messages[]{
            {{couldNotOpen, u"Mail"_s}, u"Mail ließ sich nicht öffnen."_s},
            {{couldNotOpen, u"%lld %@ %1$@"_s}, u"%lld %@ %1$@ ließ sich nicht öffnen."_s},
            {{couldNotOpen, damaged.text()},
             u"The workspace file is damaged. ließ sich nicht öffnen."_s},
            {{couldNotOpen, Message(damaged)},
             u"Die Datei ist beschädigt. ließ sich nicht öffnen."_s},
            {{u"Trovell could not open its local workspace store: %@"_key, Message(damaged)},
             u"Start unmöglich: Die Datei ist beschädigt."_s},
            {Message::verbatim(damaged.text()), damaged.text()},
            {displayName(*shortcuts().at(5)), u"Ctrl+Alt+5"_s},
            {displayName(ShortcutDefinition{.displayValue = u"Light"_s}), u"Light"_s},
            {{}, {}}};
        for (const auto& [message, shown] : messages)
            QCOMPARE(words.text(message), shown);
    }

    void windowsAndWordsMayGoInAnyOrder()
    {
        auto words = std::make_unique<TestWords>(u"en"_s);
        int renderings = 0;
        auto context = std::make_unique<QObject>();
        words->render(context.get(), [&renderings] { ++renderings; });
        words->setLanguage(u"de"_s);
        QCOMPARE(renderings, 2);
        context.reset();
        words->setLanguage(u"en"_s);
        QCOMPARE(renderings, 2);
        QPushButton button;
        words->renderText(&button, u"Light"_key);
        words.reset();
        QCOMPARE(button.text(), u"Light"_s);
    }

    void theTestLanguageShowsWhatWasForgotten()
    {
        Localization words({QString::fromUtf8(TROVELL_TEST_LANGUAGES)});
        words.setLanguage(u"en-XA"_s);
        QWidget view;
        auto* label = new QLabel(words.text(u"Light"_key), &view);
        auto* button = new QPushButton(u"Work"_s, &view);
        QCOMPARE(textsNotLookedUp(view, {u"Work"_s}), QStringList());
        label->setText(u"Forgotten"_s);
        label->setToolTip(words.text(u"Light"_key) + words.text(u"Dark"_key));
        button->setText(words.text(u"Light"_key) + u" and more"_s);
        QCOMPARE(textsNotLookedUp(view).size(), 3);

        view.show();
        for (QWidget* part : std::initializer_list<QWidget*>{label, button})
            part->resize(part->sizeHint());
        QCOMPARE(clippedTexts(view), QStringList());
        label->setFixedWidth(4);
        QCOMPARE(clippedTexts(view), QStringList{u"Forgotten"_s});
    }
};

QTEST_MAIN(LocalizationTest)
#include "LocalizationTest.moc"
