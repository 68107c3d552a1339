// SPDX-License-Identifier: MIT
//
// What the logic really says is recognised and shown in another language, with its payload intact.
#include "app/AppAppearance.h"
#include "app/AppLanguage.h"
#include "model/StoreError.h"
#include "model/WorkspaceChoices.h"
#include "views/words/Localization.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

bool isWhole(const QString& text)
{
    return text.startsWith(u'⟦') && text.endsWith(u'⟧') && text.count(u'⟦') == 1;
}

} // namespace

class LogicTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_words.setLanguage(u"en-XA"_s); }

    void details()
    {
        QStringList details{shortcutConflictText()};
        for (int i = 0; i <= int(StoreError::outOfMemory); ++i)
            details += description(StoreError(i));
        for (const QString& detail : details)
            QVERIFY2(isWhole(m_words.shownDetail(detail)), qPrintable(detail));

        const QString start = m_words.shownDetail(storeOpeningFailureText(StoreError::damaged));
        QVERIFY2(start.count(u'⟦') == 2, qPrintable(start));
    }

    void choices()
    {
        for (const AppAppearance appearance : allAppearances())
            QVERIFY(isWhole(m_words.text(displayName(appearance))));
        QVERIFY(isWhole(m_words.text(displayName(AppLanguage::system))));
        for (const auto& shortcut : shortcuts())
            QVERIFY(!shortcut || isWhole(m_words.shownShortcut(shortcut->displayValue)));
    }

private:
    Localization m_words{{QString::fromUtf8(TROVELL_TEST_LANGUAGES)}};
};

QTEST_GUILESS_MAIN(LogicTextsTest)
#include "LogicTextsTest.moc"
