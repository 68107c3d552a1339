#include "launch/ResourceOpeningService.h"

#include "launch/URLValidation.h"
#include "model/WorkspaceItem.h"
#include "support/FakeResourceSystem.h"

#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <qcoro/qcorotask.h>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace trovell;

namespace {

const QUrl oldURL(u"file:///old/report.odt"_qs);
const QUrl newURL(u"file:///new/report.odt"_qs);

WorkspaceItemValues itemOfType(const QString& type, const QUrl& url)
{
    WorkspaceItemValues values;
    values.typeRawValue = type;
    values.displayName = u"Report"_qs;
    values.urlString = url.toString(QUrl::FullyEncoded);
    return values;
}

QString missingText(const QUrl& url)
{
    return url.toString(QUrl::FullyEncoded) +
           u" could not be found. Use Locate Again to update it."_qs;
}

/// A desktop on which org.example.Editor runs, and one file that exists.
struct Desktop {
    FakeResourceSystem system;
    QUrl existing = oldURL;
    ResourceOpeningService service{
        system, [](const QString& identifier) { return identifier == u"org.example.Editor"; },
        [this](const QUrl& url) { return url == existing; }};

    LaunchResult open(WorkspaceItem& item) { return QCoro::waitFor(service.open(item)); }
};

} // namespace

class ResourceOpeningServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheResource_data();
    void findsTheResource();
    void decidesHowToOpen_data();
    void decidesHowToOpen();
    void refreshesTheBookmarkOfARunningApplication();
    void reportsRefusals_data();
    void reportsRefusals();
    void survivesTheDeletionOfTheItem();
    void seesFilesWithAnyName();
};

void ResourceOpeningServiceTest::findsTheResource_data()
{
    QTest::addColumn<QByteArray>("bookmark"); // empty for none
    QTest::addColumn<QString>("urlString");
    QTest::addColumn<QUrl>("opened"); // empty for missing
    QTest::addColumn<QByteArray>("bookmarkAfterwards");

    const auto row = [](const char* name, const QByteArray& bookmark, const QUrl& url,
                        const QUrl& opened, const QByteArray& afterwards) {
        QTest::newRow(name) << bookmark << url.toString() << opened << afterwards;
    };
    const QUrl gone(u"file:///gone"_qs);
    const QUrl remote(u"sftp://host/x"_qs);
    row("fresh", "fresh", gone, newURL, "fresh");
    row("stale", "stale", gone, newURL, "bookmark of file:///new/report.odt");
    row("stale, cannot be made anew", "stuck", oldURL, oldURL, "stuck");
    row("does not resolve, old path gone", "nonsense", gone, {}, "nonsense");
    row("empty bookmark", QByteArray(""), oldURL, oldURL, {});
    row("no bookmark", {}, oldURL, oldURL, {});
    row("no bookmark, path gone", {}, gone, {}, {});
    row("no file URL", {}, remote, remote, {});
    QTest::newRow("no URL at all") << QByteArray() << u"http://a b"_qs << QUrl() << QByteArray();
}

void ResourceOpeningServiceTest::findsTheResource()
{
    QFETCH(QByteArray, bookmark);
    QFETCH(QString, urlString);
    QFETCH(QUrl, opened);
    QFETCH(QByteArray, bookmarkAfterwards);

    Desktop desktop;
    const QUrl unmarkable(u"file:///unmarkable"_qs);
    desktop.system.addBookmark("fresh", newURL);
    desktop.system.addBookmark("stale", newURL, true);
    desktop.system.addBookmark("stuck", unmarkable, true);
    desktop.system.refuseToBookmark(unmarkable);
    WorkspaceItemValues values = itemOfType(u"file"_qs, {});
    values.urlString = urlString;
    if (!bookmark.isNull())
        values.bookmarkData = bookmark;
    WorkspaceItem item(values);

    const LaunchResult result = desktop.open(item);

    QCOMPARE(item.bookmarkData().value_or(QByteArray()), bookmarkAfterwards);
    QCOMPARE(desktop.system.openedResources(), opened.isEmpty() ? QList<QUrl>() : QList{opened});
    if (opened.isEmpty()) {
        QCOMPARE(result.kind, LaunchResultKind::skippedMissingResource);
        QCOMPARE(result.detail.value_or(QString()),
                 urlString + u" could not be found. Use Locate Again to update it."_qs);
    } else {
        QCOMPARE(result.kind, LaunchResultKind::opened);
        QVERIFY(!result.detail);
    }
}

void ResourceOpeningServiceTest::decidesHowToOpen_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("bundleIdentifier");
    QTest::addColumn<LaunchResultKind>("kind");
    QTest::addColumn<bool>("isOpenedAsApplication");

    const QString running = u"org.example.Editor"_qs;
    const QString notRunning = u"org.example.Player"_qs;
    const auto row = [](const char* name, const QString& type, const QString& identifier,
                        LaunchResultKind kind, bool asApplication) {
        QTest::newRow(name) << type << identifier << kind << asApplication;
    };
    row("application", u"application"_qs, notRunning, LaunchResultKind::launched, true);
    row("running application", u"application"_qs, running, LaunchResultKind::alreadyRunning, true);
    row("folder", u"folder"_qs, {}, LaunchResultKind::opened, false);
    row("file of a running application", u"file"_qs, running, LaunchResultKind::opened, false);
    row("unknown type", u"Application"_qs, running, LaunchResultKind::opened, false);
}

void ResourceOpeningServiceTest::decidesHowToOpen()
{
    QFETCH(QString, type);
    QFETCH(QString, bundleIdentifier);
    QFETCH(LaunchResultKind, kind);
    QFETCH(bool, isOpenedAsApplication);

    Desktop desktop;
    WorkspaceItemValues values = itemOfType(type, oldURL);
    if (!bundleIdentifier.isNull())
        values.bundleIdentifier = bundleIdentifier;
    WorkspaceItem item(values);

    const LaunchResult result = desktop.open(item);

    QCOMPARE(result.kind, kind);
    QCOMPARE(result.name, u"Report"_qs);
    QVERIFY(!result.detail);
    QVERIFY(!result.id.isNull() && result.id != item.id());
    const bool isOpened = kind != LaunchResultKind::alreadyRunning;
    QCOMPARE(desktop.system.opened(), isOpened ? QList{oldURL} : QList<QUrl>());
    QCOMPARE(!desktop.system.openedApplications().isEmpty(), isOpened && isOpenedAsApplication);
}

void ResourceOpeningServiceTest::refreshesTheBookmarkOfARunningApplication()
{
    Desktop desktop;
    desktop.system.addBookmark("stale", newURL, true);
    WorkspaceItemValues values = itemOfType(u"application"_qs, oldURL);
    values.bundleIdentifier = u"org.example.Editor"_qs;
    values.bookmarkData = "stale";
    WorkspaceItem item(values);

    QCOMPARE(desktop.open(item).kind, LaunchResultKind::alreadyRunning);
    QCOMPARE(item.bookmarkData(), desktop.system.createBookmark(newURL));
    QVERIFY(desktop.system.opened().isEmpty());
}

void ResourceOpeningServiceTest::reportsRefusals_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<LaunchResultKind>("kind");
    QTest::addColumn<QString>("detail");

    const QString refusal = u"macOS could not open Report."_qs;
    const auto row = [](const char* type, const char* url, LaunchResultKind kind,
                        const QString& detail) {
        QTest::addRow("%s %s", type, url)
            << QString::fromLatin1(type) << QUrl(QString::fromLatin1(url)) << kind << detail;
    };
    row("application", "file:///refused", LaunchResultKind::failed, refusal);
    row("file", "file:///refused", LaunchResultKind::failed, refusal);
    row("webLink", "https://wiki.refused", LaunchResultKind::failed, refusal);
    row("webLink", "https://wiki.local", LaunchResultKind::opened, {});
    row("webLink", "ftp://wiki.local", LaunchResultKind::failed,
        description(URLValidationError::unsupportedScheme));
    row("webLink", "", LaunchResultKind::failed, description(URLValidationError::empty));
    row("folder", "file:///gone/x%20y", LaunchResultKind::skippedMissingResource,
        missingText(QUrl(u"file:///gone/x%20y"_qs)));
}

void ResourceOpeningServiceTest::reportsRefusals()
{
    QFETCH(QString, type);
    QFETCH(QUrl, url);
    QFETCH(LaunchResultKind, kind);
    QFETCH(QString, detail);

    Desktop desktop;
    desktop.existing = QUrl(u"file:///refused"_qs);
    desktop.system.refuseToOpen(desktop.existing);
    desktop.system.refuseToOpen(QUrl(u"https://wiki.refused"_qs));
    WorkspaceItem item(itemOfType(type, url));

    const LaunchResult result = desktop.open(item);

    QCOMPARE(result.name, u"Report"_qs);
    QCOMPARE(result.kind, kind);
    QCOMPARE(result.detail.value_or(QString()), detail);
    QCOMPARE(desktop.system.opened().isEmpty(), kind != LaunchResultKind::opened);
}

void ResourceOpeningServiceTest::survivesTheDeletionOfTheItem()
{
    Desktop desktop;
    desktop.system.addBookmark("stale", newURL, true);
    WorkspaceItemValues values = itemOfType(u"file"_qs, oldURL);
    values.bookmarkData = "stale";
    auto item = std::make_unique<WorkspaceItem>(values);

    auto task = desktop.service.open(*item);
    item.reset();

    QCOMPARE(QCoro::waitFor(std::move(task)).kind, LaunchResultKind::opened);
    QCOMPARE(desktop.system.openedResources(), QList{newURL});
}

void ResourceOpeningServiceTest::seesFilesWithAnyName()
{
    const QTemporaryDir folder;
    const QByteArray prefix = "file://" + QFile::encodeName(folder.path());
    const QByteArray path = QFile::encodeName(folder.path()) + "/caf\xe9 100%";
    QVERIFY(::mkdir(path.constData(), 0700) == 0);
    // QTemporaryDir cannot remove a name that is no UTF-8.
    const auto removeFolder = qScopeGuard([&path] { ::rmdir(path.constData()); });

    QVERIFY(resourceExists(QUrl::fromEncoded(prefix + "/caf%E9%20100%25")));
    QVERIFY(resourceExists(QUrl::fromEncoded(prefix + '/')));
    QVERIFY(!resourceExists(QUrl::fromEncoded(prefix + "/caf%E9")));
    QVERIFY(!resourceExists(QUrl::fromEncoded(prefix + "/%00")));
}

QTEST_GUILESS_MAIN(ResourceOpeningServiceTest)
#include "ResourceOpeningServiceTest.moc"
