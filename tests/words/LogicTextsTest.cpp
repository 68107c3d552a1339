// What the logic really says is recognised and shown in another language, with its payload intact.
#include "app/AppAppearance.h"
#include "app/AppLanguage.h"
#include "launch/ResourceOpeningError.h"
#include "launch/URLValidation.h"
#include "launch/WorkspaceLaunchReport.h"
#include "model/StoreError.h"
#include "model/WorkspaceChoices.h"
#include "views/words/Localization.h"
#include "windows/WindowServiceError.h"

#include <QTest>

using namespace trovell;

class LogicTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_words.setLanguage(u"en-XA"_qs); }

    void details_data()
    {
        QTest::addColumn<QString>("detail");
        for (int i = 0; i <= int(StoreError::outOfMemory); ++i)
            QTest::addRow("store %d", i) << description(StoreError(i));
        for (const auto error :
             {WindowServiceError::accessibilityPermissionMissing, WindowServiceError::noWindows})
            QTest::addRow("windows %d", int(error)) << description(error);
        for (const auto error : {URLValidationError::empty, URLValidationError::invalid,
                                 URLValidationError::unsupportedScheme})
            QTest::addRow("link %d", int(error)) << description(error);
        QTest::newRow("shortcut") << shortcutConflictText();
    }
    void details()
    {
        QFETCH(QString, detail);
        const QString shown = m_words.shownDetail(detail);
        QVERIFY2(isWhole(shown), qPrintable(shown));
    }

    void detailsWithAPayload()
    {
        const QString payload = u"file:///%lld/a %@\n"_qs;
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
            Localization english({QStringLiteral(":/trovell/translations")});
            QCOMPARE(english.text(summary.key, summary.values), summary.formatted(summary.key));
        }
    }

    void choices()
    {
        for (const AppAppearance appearance : allAppearances())
            QVERIFY(isWhole(m_words.text(displayName(appearance))));
        QVERIFY(isWhole(m_words.text(displayName(AppLanguage::system))));
        for (const auto& shortcut : shortcuts()) {
            if (shortcut)
                QVERIFY(isWhole(m_words.shownShortcut(shortcut->displayValue)));
        }
    }

private:
    static bool isWhole(const QString& text)
    {
        return text.startsWith(u'⟦') && text.endsWith(u'⟧') && text.count(u'⟦') == 1;
    }

    Localization m_words{{QStringLiteral(TROVELL_TEST_LANGUAGES)}};
};

QTEST_GUILESS_MAIN(LogicTextsTest)
#include "LogicTextsTest.moc"
