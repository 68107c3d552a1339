// Changing the language while windows are open.
#include "views/words/Localization.h"
#include "views/words/Phrases.h"
#include "words/WidgetTexts.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTest>

using namespace trovell;

namespace {

/// A window with a name from a record, a count and a button, in this order.
class Card : public QWidget {
public:
    explicit Card(const Localization& words) : m_words(words)
    {
        auto* const row = new QHBoxLayout(this);
        for (QWidget* part : std::initializer_list<QWidget*>{m_name, m_count, m_button})
            row->addWidget(part);
        words.renderText(m_button, u"Light"_key);
        words.render(this, [this] { showCount(); });
    }

    void showCount()
    {
        ++m_renderings;
        m_count->setText(m_words.text(phrases::itemCount, m_items));
    }

    const Localization& m_words;
    QLabel* m_name = new QLabel(u"Work"_qs);
    QLabel* m_count = new QLabel;
    QPushButton* m_button = new QPushButton;
    qint64 m_items = 3;
    int m_renderings = 0;
};

QStringList allFolders()
{
    return {QStringLiteral(TROVELL_TEST_TABLES), QStringLiteral(TROVELL_TEST_LANGUAGES),
            QStringLiteral(":/trovell/translations")};
}

} // namespace

class LiveLanguageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_words.setLanguage(u"en"_qs); }

    void everyOpenWindowFollows()
    {
        Card first(m_words);
        Card second(m_words);
        second.m_items = 1;
        QCOMPARE(first.m_count->text(), u"3 items"_qs);
        m_words.setLanguage(u"pl"_qs);
        QCOMPARE(first.m_count->text(), u"3 elementy"_qs);
        QCOMPARE(second.m_count->text(), u"1 element"_qs);
        QCOMPARE(first.m_button->text(), u"Light"_qs); // Polish lacks it.
        m_words.setLanguage(u"de"_qs);
        QCOMPARE(second.m_button->text(), u"Hell"_qs);
        QCOMPARE(first.m_name->text(), u"Work"_qs);
        QCOMPARE(first.m_renderings, 3);
    }

    void windowsAndWordsMayGoInAnyOrder()
    {
        int renderings = 0;
        auto context = std::make_unique<QObject>();
        m_words.render(context.get(), [&renderings] { ++renderings; });
        context.reset();
        m_words.setLanguage(u"de"_qs);
        QCOMPARE(renderings, 1);

        auto words = std::make_unique<Localization>(allFolders());
        Card card(*words);
        words.reset();
        QCOMPARE(card.m_renderings, 1);
    }

    void layoutFollowsTheTextsDirection()
    {
        Card card(m_words);
        card.show();
        QCOMPARE(card.layoutDirection(), Qt::LeftToRight);
        QVERIFY(card.m_name->x() < card.m_button->x());

        m_words.setLanguage(u"ar-XB"_qs);
        QCOMPARE(card.layoutDirection(), Qt::RightToLeft);
        QTRY_VERIFY(card.m_name->x() > card.m_button->x());
        QVERIFY(card.m_count->text().contains(u'٣'));

        // Numbers are Hebrew's, but the texts are English for want of a table.
        m_words.setLanguage(u"he"_qs);
        QCOMPARE(m_words.locale().language(), QLocale::Hebrew);
        QCOMPARE(card.layoutDirection(), Qt::LeftToRight);
    }

    void theTestLanguageShowsWhatWasForgotten()
    {
        Card card(m_words);
        m_words.setLanguage(u"en-XA"_qs);
        QCOMPARE(textsNotLookedUp(card, {u"Work"_qs}), QStringList());

        card.m_name->setText(u"Forgotten"_qs);
        card.m_button->setText(m_words.text(u"Light"_key) + u" and more"_qs);
        card.m_count->setToolTip(m_words.text(u"Light"_key) + m_words.text(u"Dark"_key));
        QCOMPARE(textsNotLookedUp(card, {u"Work"_qs}).size(), 3);

        card.show();
        card.resize(card.sizeHint());
        QCOMPARE(clippedTexts(card), QStringList());
        card.m_name->setFixedWidth(4);
        QCOMPARE(clippedTexts(card), QStringList{u"Forgotten"_qs});
    }

private:
    Localization m_words{allFolders()};
};

QTEST_MAIN(LiveLanguageTest)
#include "LiveLanguageTest.moc"
