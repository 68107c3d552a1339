// SPDX-License-Identifier: MIT

#include "launch/ResourceOpeningService.h"

#include "launch/URLValidation.h"
#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceItem.h"
#include "support/FakeResourceSystem.h"
#include "support/ReadyFuture.h"

#include <QtTest>

#include <qcoro/qcorotask.h>

#include <memory>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

const QUrl oldURL(u"file:///old/report.odt"_s);
const QUrl newURL(u"file:///new/report.odt"_s);

WorkspaceItemValues itemOfType(const QString& type, const QString& url)
{
    WorkspaceItemValues values;
    values.typeRawValue = type;
    values.displayName = u"Report"_s;
    values.urlString = url;
    return values;
}

QString missingText(const QString& url)
{
    return url + u" could not be found. Use Locate Again to update it."_s;
}

/// A desktop on which org.example.Editor runs, and one file that exists.
struct Desktop {
    FakeResourceSystem system;
    QUrl existing = oldURL;
    ResourceOpeningService service{borrowed(system),
                                   [](const QString& id, bool needsWindow) {
                                       return readyFuture(id == u"org.example.Editor"_s &&
                                                          !needsWindow);
                                   },
                                   [this](const QUrl& url) { return url == existing; }};

    QPromise<void> givingUp;

    LaunchResult open(WorkspaceItem& item)
    {
        givingUp = QPromise<void>();
        givingUp.start();
        return QCoro::waitFor(service.open(item, givingUp.future()));
    }
};

} // namespace

class ResourceOpeningServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheResource()
    {
        const QUrl gone(u"file:///gone"_s);
        const QUrl remote(u"sftp://host/x"_s);
        const QUrl unmarkable(u"file:///unmarkable"_s);
        const auto verify = [&](const QByteArray& bookmark, const QString& urlString,
                                const QUrl& opened, const QByteArray& bookmarkAfterwards) {
            Desktop desktop;
            desktop.system.addBookmark("fresh", newURL);
            desktop.system.addBookmark("stale", newURL, true);
            desktop.system.addBookmark("stuck", unmarkable, true);
            desktop.system.refuseToBookmark(unmarkable);
            WorkspaceItemValues values = itemOfType(u"file"_s, urlString);
            if (!bookmark.isNull())
                values.bookmarkData = bookmark;
            WorkspaceItem item(values);
            const LaunchResult result = desktop.open(item);
            QCOMPARE(item.bookmarkData().value_or(QByteArray()), bookmarkAfterwards);
            QCOMPARE(desktop.system.openedResources(),
                     opened.isEmpty() ? QList<QUrl>() : QList{opened});
            QCOMPARE(result.kind, opened.isEmpty() ? LaunchResultKind::skippedMissingResource
                                                   : LaunchResultKind::opened);
            QCOMPARE(result.detail.productText(),
                     opened.isEmpty() ? missingText(urlString) : QString());
        };
        verify("fresh", gone.toString(), newURL, "fresh");
        verify("stale", gone.toString(), newURL, "bookmark of file:///new/report.odt");
        verify("stuck", oldURL.toString(), oldURL, "stuck");
        verify("nonsense", gone.toString(), {}, "nonsense");
        verify("", oldURL.toString(), oldURL, {});
        verify({}, gone.toString(), {}, {});
        verify({}, remote.toString(), remote, {});
        verify({}, u"http://a b"_s, {}, {});
    }

    void opensByType_data()
    {
        using enum LaunchResultKind;
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("url"); // nothing is at /gone, and some refuse to open
        QTest::addColumn<QString>("bundleIdentifier");
        QTest::addColumn<LaunchResultKind>("kind");
        QTest::addColumn<QString>("detail");

        const QString running = u"org.example.Editor"_s;
        const QString refusal = u"macOS could not open Report."_s;
        const auto row = [](const char* type, const char* url, const QString& identifier,
                            LaunchResultKind kind, const QString& detail = {}) {
            QTest::addRow("%s %s %s", type, url, qPrintable(identifier))
                << QString::fromLatin1(type) << QString::fromLatin1(url) << identifier << kind
                << detail;
        };
        row("application", "file:///apps/x", u"org.example.Player"_s, launched);
        row("application", "file:///apps/x", running, alreadyRunning);
        row("application", "file:///refused", {}, failed, refusal);
        row("folder", "file:///gone/x%20y", {}, skippedMissingResource,
            missingText(u"file:///gone/x%20y"_s));
        row("file", "file:///refused", {}, failed, refusal);
        row("Application", "file:///x", running, opened);
        row("webLink", "https://wiki.local", {}, opened);
        row("webLink", "https://wiki.refused", {}, failed, refusal);
        row("webLink", "ftp://wiki.local", {}, failed,
            description(URLValidationError::unsupportedScheme).productText());
        row("webLink", "", {}, failed, description(URLValidationError::empty).productText());
    }

    void opensByType()
    {
        QFETCH(QString, type);
        QFETCH(QString, url);
        QFETCH(QString, bundleIdentifier);
        QFETCH(LaunchResultKind, kind);
        Desktop desktop;
        if (!url.contains(u"/gone"))
            desktop.existing = QUrl(url);
        if (url.contains(u"refused"))
            desktop.system.refuseToOpen(QUrl(url));
        WorkspaceItemValues values = itemOfType(type, url);
        if (!bundleIdentifier.isEmpty())
            values.bundleIdentifier = bundleIdentifier;
        WorkspaceItem item(values);

        const LaunchResult result = desktop.open(item);

        QCOMPARE(result.kind, kind);
        QCOMPARE(result.name.productText(), u"Report"_s);
        QTEST(result.detail.productText(), "detail");
        QVERIFY(!result.id.isNull() && result.id != item.id());
        const bool isLaunched = kind == LaunchResultKind::launched;
        const bool isOpened = isLaunched || kind == LaunchResultKind::opened;
        QCOMPARE(desktop.system.opened(), isOpened ? QList{QUrl(url)} : QList<QUrl>());
        QCOMPARE(!desktop.system.openedApplications().isEmpty(), isLaunched);
    }

    void startsOnceMoreWhatHasNoWindow()
    {
        Desktop desktop;
        WorkspaceItemValues values = itemOfType(u"application"_s, oldURL.toString());
        values.bundleIdentifier = u"org.example.Editor"_s;
        values.arguments = u"--quiet"_s;
        TrovellWorkspace workspace{WorkspaceValues()};
        WorkspaceItem& item = workspace.appendItem(std::make_unique<WorkspaceItem>(values));
        QCOMPARE(desktop.open(item).kind, LaunchResultKind::alreadyRunning);
        workspace.appendPlacement(std::make_unique<WindowPlacement>(
            WindowPlacementValues{.bundleIdentifier = *values.bundleIdentifier}));
        QCOMPARE(desktop.open(item).kind, LaunchResultKind::launched);
        QCOMPARE(desktop.system.lastStart.arguments, u"--quiet"_s);
    }

    void survivesTheDeletionOfTheItem()
    {
        Desktop desktop;
        desktop.system.addBookmark("stale", newURL, true);
        WorkspaceItemValues values = itemOfType(u"file"_s, oldURL.toString());
        values.bookmarkData = "stale";
        auto item = std::make_unique<WorkspaceItem>(values);

        desktop.givingUp.start();
        auto task = desktop.service.open(*item, desktop.givingUp.future());
        item.reset();

        QCOMPARE(QCoro::waitFor(std::move(task)).kind, LaunchResultKind::opened);
        QCOMPARE(desktop.system.openedResources(), QList{newURL});
    }
};

QTEST_GUILESS_MAIN(ResourceOpeningServiceTest)
#include "ResourceOpeningServiceTest.moc"
