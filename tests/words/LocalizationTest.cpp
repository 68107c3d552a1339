// Looking texts up: languages, plural forms, placeholders and finished texts from the logic.
#include "views/words/Localization.h"
#include "views/words/Phrases.h"
#include "words/WidgetTexts.h"

#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace trovell;

namespace {

const QString testTables = QStringLiteral(TROVELL_TEST_TABLES);
const QString compiledTables = QStringLiteral(":/trovell/translations");

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
            {u"de-AT"_qs, u"Hell"_qs},    {u"zh-Hans"_qs, u"浅色"_qs}, {u"zh-CN"_qs, u"浅色"_qs},
            {u"zh-Hant"_qs, u"Light"_qs}, {u"fi"_qs, u"Light"_qs},     {QString(), u"Light"_qs}};
        for (const auto& [tag, light] : tables)
            QCOMPARE(TestWords(tag).text(u"Light"_key), light);
    }

    void followsTheSystem()
    {
        QLocale system(QStringLiteral("de_DE"));
        Localization words({testTables, compiledTables}, [&system] { return system; });
        QSignalSpy changed(&words, &Localization::languageChanged);
        QCOMPARE(words.text(u"Light"_key), u"Hell"_qs);
        words.refreshSystemLocale();
        QCOMPARE(changed.count(), 0);
        system = QLocale(QStringLiteral("zh_CN"));
        words.refreshSystemLocale();
        QCOMPARE(words.text(u"Light"_key), u"浅色"_qs);
        QCOMPARE(changed.count(), 1);
        words.setLanguage(u"en"_qs);
        words.refreshSystemLocale();
        QCOMPARE(words.text(u"Light"_key), u"Light"_qs);
    }

    void aFileAddsALanguage()
    {
        const QTemporaryDir folder;
        Localization words({folder.path(), compiledTables});
        words.setLanguage(u"nl"_qs);
        QCOMPARE(words.text(u"Light"_key), u"Light"_qs);
        QVERIFY(
            QFile::copy(testTables + u"/trovell_de.qm"_qs, folder.filePath(u"trovell_nl.qm"_qs)));
        words.setLanguage(u"nl"_qs);
        QCOMPARE(words.text(u"Light"_key), u"Hell"_qs);
    }

    void fallsBackKeyByKey()
    {
        const TestWords words(u"de"_qs);
        QCOMPARE(words.text(u"Items"_key), u"Objekte"_qs);
        QCOMPARE(words.text(phrases::motto), u"Your desktop, ready in one click."_qs);
        QCOMPARE(words.text(u"Save Layout"_key), u"Save Layout"_qs);
        QCOMPARE(words.text(u"Edit"_key), u"Edit"_qs); // Its translation is not finished.
        QCOMPARE(words.text(phrases::created, u"Work"_qs), u"Work created."_qs);
    }

    void usesThePluralFormsOfTheLanguage()
    {
        const std::tuple<QString, qint64, QString> counts[]{
            {u"de"_qs, 0, u"0 Objekte"_qs},
            {u"de"_qs, -1, u"-1 Objekt"_qs},
            {u"pl"_qs, 1, u"1 element"_qs},
            {u"pl"_qs, 3, u"3 elementy"_qs},
            {u"pl"_qs, 5, u"5 elementów"_qs},
            {u"pl"_qs, 12, u"12 elementów"_qs},
            {u"pl"_qs, 22, u"22 elementy"_qs},
            {u"zh-Hans"_qs, 7, u"7 个项目"_qs},
            // More than an int holds.
            {u"de"_qs, (qint64(1) << 32) + 1, u"4.294.967.297 Objekte"_qs}};
        for (const auto& [tag, count, items] : counts)
            QCOMPARE(TestWords(tag).text(phrases::itemCount, count), items);
    }

    void givesEachOfSeveralNumbersItsOwnForm()
    {
        QCOMPARE(TestWords(u"de"_qs).text(phrases::windowsSelectedAndPositionsKept, 2, 1),
                 u"1 Position behalten, 2 Fenster gewählt"_qs);
        const auto summary = u"Completed %lld actions. %lld windows restored. "
                             u"Review %lld skipped or failed items."_key;
        const TestWords polish(u"pl"_qs);
        QCOMPARE(polish.text(summary, 1, 2, 5), u"1 akcja • 2 okna • 5 wpisów"_qs);
        QCOMPARE(polish.text(summary.text(), {5, 1, 3}), u"5 akcji • 1 okno • 3 wpisy"_qs);
    }

    void writesNumbersAsTheLocaleDoes()
    {
        const TestWords german(u"de"_qs);
        QCOMPARE(german.text(phrases::itemCount, 12345), u"12.345 Objekte"_qs);
        QCOMPARE(german.text(phrases::currentTimeout, NumberArgument::plain(12345)),
                 u"Current timeout: 12345 seconds"_qs);
        QCOMPARE(TestWords(u"ar"_qs).text(phrases::selectedCount, 12), u"١٢ selected"_qs);
    }

    void neverReadsAValueAsAPlaceholder()
    {
        const TestWords words(u"en"_qs);
        QCOMPARE(words.text(u"%@ • %@"_key, u"%@ %lld %2$@"_qs, u"last"_qs),
                 u"%@ %lld %2$@ • last"_qs);
        QCOMPARE(filledIn(u"100% of %@, 5 %lld"_qs, {u"it"_qs}), u"100% of it, 5 %lld"_qs);
    }

    void keepsTheProductsTextForRecords()
    {
        QCOMPARE(productText(phrases::saved, u"Work"_qs), u"Work saved."_qs);
        QCOMPARE(productText(u"%lld items"_key, 12345), u"12345 items"_qs);
    }

    void recognisesDetails()
    {
        const TestWords words(u"de"_qs);
        const auto couldNotOpen = u"macOS could not open %1."_qs;
        const auto notTranslated = u"Mail is no longer available. Reopen it and capture again."_qs;
        const std::pair<QString, QString> details[]{
            {u"The workspace file is damaged."_qs, u"Die Datei ist beschädigt."_qs},
            {couldNotOpen.arg(u"Mail"_qs), u"Mail ließ sich nicht öffnen."_qs},
            {u"file:///a b could not be found. Use Locate Again to update it."_qs,
             u"Nicht gefunden: file:///a b"_qs},
            {couldNotOpen.arg(u"%lld %@ %1$@"_qs), u"%lld %@ %1$@ ließ sich nicht öffnen."_qs},
            {couldNotOpen.arg(couldNotOpen.arg(u"x"_qs)),
             u"macOS could not open x. ließ sich nicht öffnen."_qs},
            {u"Trovell could not open its local workspace store: The workspace file is damaged."_qs,
             u"Start unmöglich: Die Datei ist beschädigt."_qs},
            {notTranslated, notTranslated},
            {u"macOS could not open"_qs, u"macOS could not open"_qs},
            {{}, {}}};
        for (const auto& [detail, shown] : details)
            QCOMPARE(words.shownDetail(detail), shown);
    }

    void recognisesNoticesButNoNamesOfTheUser()
    {
        const TestWords words(u"de"_qs);
        QCOMPARE(words.shownNotice(u"Work saved."_qs), u"„Work“ gesichert."_qs);
        QCOMPARE(words.shownNotice(u"Workspace renamed to A saved."_qs),
                 u"Heißt jetzt „A saved“."_qs);
        QCOMPARE(words.shownNotice(u"Items"_qs), u"Items"_qs);
        QCOMPARE(words.shownResultName(u"Window layout"_qs), u"Fensteranordnung"_qs);
        QCOMPARE(words.shownResultName(u"Items"_qs), u"Items"_qs);
        QCOMPARE(words.shownShortcut(u"⌃⌥5"_qs), u"Ctrl+Alt+5"_qs);
        QCOMPARE(words.shownShortcut(u"⌘Q"_qs), u"⌘Q"_qs);
    }

    void windowsAndWordsMayGoInAnyOrder()
    {
        auto words = std::make_unique<TestWords>(u"en"_qs);
        int renderings = 0;
        auto context = std::make_unique<QObject>();
        words->render(context.get(), [&renderings] { ++renderings; });
        words->setLanguage(u"de"_qs);
        QCOMPARE(renderings, 2);
        context.reset();
        words->setLanguage(u"en"_qs);
        QCOMPARE(renderings, 2);
        QPushButton button;
        words->renderText(&button, u"Light"_key);
        words.reset();
        QCOMPARE(button.text(), u"Light"_qs);
    }

    void theTestLanguageShowsWhatWasForgotten()
    {
        Localization words({QStringLiteral(TROVELL_TEST_LANGUAGES)});
        words.setLanguage(u"en-XA"_qs);
        QWidget view;
        auto* label = new QLabel(words.text(u"Light"_key), &view);
        auto* button = new QPushButton(u"Work"_qs, &view);
        QCOMPARE(textsNotLookedUp(view, {u"Work"_qs}), QStringList());
        label->setText(u"Forgotten"_qs);
        label->setToolTip(words.text(u"Light"_key) + words.text(u"Dark"_key));
        button->setText(words.text(u"Light"_key) + u" and more"_qs);
        QCOMPARE(textsNotLookedUp(view).size(), 3);

        view.show();
        for (QWidget* part : std::initializer_list<QWidget*>{label, button})
            part->resize(part->sizeHint());
        QCOMPARE(clippedTexts(view), QStringList());
        label->setFixedWidth(4);
        QCOMPARE(clippedTexts(view), QStringList{u"Forgotten"_qs});
    }
};

QTEST_MAIN(LocalizationTest)
#include "LocalizationTest.moc"
