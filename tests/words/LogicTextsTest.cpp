// SPDX-License-Identifier: MIT
//
// What the logic really says is recognised and shown in another language, with its payload intact.
#include "launch/ResourceOpeningError.h"
#include "launch/URLValidation.h"
#include "model/StoreError.h"
#include "model/WorkspaceChoices.h"
#include "preferences/AppAppearance.h"
#include "preferences/AppLanguage.h"
#include "results/WorkspaceLaunchReport.h"
#include "views/words/Localization.h"
#include "windows/WindowServiceError.h"

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
        QStringList details{shortcutConflictText(),
                            description(WindowServiceError::accessibilityPermissionMissing),
                            description(WindowServiceError::noWindows)};
        for (int i = 0; i <= int(StoreError::outOfMemory); ++i)
            details += description(StoreError(i));
        for (const auto error : {URLValidationError::empty, URLValidationError::invalid,
                                 URLValidationError::unsupportedScheme})
            details += description(error);
        for (const QString& detail : details)
            QVERIFY2(isWhole(m_words.shownDetail(detail)), qPrintable(detail));

        const QString payload = u"file:///%lld/a %@\n"_s;
        for (const auto kind :
             {ResourceOpeningError::Kind::missing, ResourceOpeningError::Kind::cannotOpen}) {
            const QString shown = m_words.shownDetail(description({kind, payload}));
            QVERIFY2(isWhole(shown) && shown.contains(payload), qPrintable(shown));
        }
        const QString start = m_words.shownDetail(storeOpeningFailureText(StoreError::damaged));
        QVERIFY2(start.count(u'⟦') == 2, qPrintable(start));
    }

    void summaries()
    {
        const Localization english({u":/trovell/translations"_s});
        using enum LaunchResultKind;
        for (const QList<LaunchResultKind>& kinds :
             {QList{opened}, QList{opened, restored}, QList{opened, failed},
              QList{opened, restored, failed}}) {
            WorkspaceLaunchReport report;
            for (const LaunchResultKind kind : kinds)
                report.results += makeLaunchResult(QString(), kind);
            const LaunchSummary summary = report.summary();
            const QString shown = m_words.text(summary.key, summary.values);
            QVERIFY2(isWhole(shown) && !shown.contains(u'%'), qPrintable(shown));
            QCOMPARE(english.text(summary.key, summary.values), summary.formatted(summary.key));
        }
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
