// What the updater refuses, met on a real https server: in the right words, and with nothing left
// on the disk.
#include "services/update/UpdateFeedParser.h"
#include "support/FullDisk.h"
#include "support/TestAuthority.h"
#include "support/UpdateWorld.h"

#include <QTest>

using namespace trovell;
using namespace trovell::test;
using namespace std::chrono_literals;
using Phase = UpdateState::Phase;
using After = ServedFile::After;

namespace {

using Arrange = std::function<void(UpdateWorld&)>;

/// Something wrong with the world, and what it is refused with.
struct Refusal {
    const char* name;
    Arrange arrange;
    UpdateError error;
};

Arrange feed(const ServedFile& file)
{
    return [file](UpdateWorld& world) { world.serveFeed(file); };
}

/// The package as it should be, in all but one way.
Arrange package(const std::function<ServedFile(const QByteArray&)>& served)
{
    return [served](UpdateWorld& world) { world.servePackage(served(world.package)); };
}

Arrange item(QString PublishedItem::*field, const QString& value)
{
    return [field, value](UpdateWorld& world) { world.changeItem(field, value); };
}

Arrange redirected(const QString& path, const QByteArray& target)
{
    return [path, target](UpdateWorld& world) { world.server.redirect(path, target); };
}

/// Waits for half a second of silence, and for a feed for a second.
Arrange impatient(const Arrange& arrange)
{
    return [arrange](UpdateWorld& world) {
        world.environment.silenceTimeout = 500ms;
        world.environment.feedTimeout = 1s;
        arrange(world);
    };
}

const QList<Refusal> feedRefusals{
    {"nobody listens", [](UpdateWorld& world) { world.server.stopListening(); },
     UpdateError::serverUnreachable},
    {"error with an endless page",
     feed({.status = 500, .contentLength = -1, .breaksAt = 0, .after = After::drip}),
     UpdateError::serverRefused},
    {"redirect to http", redirected(UpdateWorld::feedPath, "http://127.0.0.1:1/feed.xml"),
     UpdateError::redirectNotSecure},
    {"redirect to itself", redirected(UpdateWorld::feedPath, "/feed.xml"),
     UpdateError::tooManyRedirects},
    {"closed in the middle", feed({.body = feedOf({{}}), .breaksAt = 100}),
     UpdateError::connectionLost},
    {"silent from the start",
     impatient(feed({.contentLength = 100, .breaksAt = 0, .after = After::silence})),
     UpdateError::timedOut},
    {"dripping for ever",
     impatient(feed({.contentLength = -1, .breaksAt = 0, .after = After::drip})),
     UpdateError::timedOut},
    {"too large", feed({.body = QByteArray(feedlimits::bytes + 1, ' '), .contentLength = -1}),
     UpdateError::feedTooLarge},
    {"entities", feed({.body = "<!DOCTYPE rss><rss/>"}), UpdateError::feedDeclaresEntities},
    {"package address not secure", item(&PublishedItem::address, u"http://127.0.0.1/x.deb"_qs),
     UpdateError::addressNotSecure},
    {"malformed signature", item(&PublishedItem::signature, u"c2ln"_qs),
     UpdateError::signatureMalformed},
    {"package too large",
     [](UpdateWorld& world) { world.environment.maximumPackageBytes = world.package.size() - 1; },
     UpdateError::packageTooLarge},
};

const QList<Refusal> packageRefusals{
    {"one bit changed", package([](QByteArray content) {
         content[1'000'000] = static_cast<char>(content[1'000'000] ^ 1);
         return ServedFile{.body = content};
     }),
     UpdateError::signatureWrong},
    {"signed with another key",
     [](UpdateWorld& world) {
         world.changeItem(&PublishedItem::signature, UpdatePublisher().signature(world.package));
     },
     UpdateError::signatureWrong},
    {"longer than announced",
     package([](const QByteArray& content) { return ServedFile{.body = content + 'x'}; }),
     UpdateError::packageLongerThanAnnounced},
    {"endless", package([](const QByteArray& content) {
         return ServedFile{.body = content,
                           .contentLength = -1,
                           .breaksAt = content.size(),
                           .after = After::drip};
     }),
     UpdateError::packageLongerThanAnnounced},
    {"shorter than announced",
     package([](const QByteArray& content) { return ServedFile{.body = content.chopped(1)}; }),
     UpdateError::packageShorterThanAnnounced},
    {"closed in the middle", package([](const QByteArray& content) {
         return ServedFile{.body = content, .breaksAt = 2'000'000};
     }),
     UpdateError::connectionLost},
    {"silent in the middle", impatient(package([](const QByteArray& content) {
         return ServedFile{.body = content, .breaksAt = 2'000'000, .after = After::silence};
     })),
     UpdateError::timedOut},
    {"redirect to http", redirected(UpdateWorld::packagePath, "http://127.0.0.1:1/x"),
     UpdateError::redirectNotSecure},
    {"no folder",
     [](UpdateWorld& world) { world.environment.downloadFolder = u"/proc/trovell/update"_qs; },
     UpdateError::folderNotWritable},
};

} // namespace

class UpdaterRefusalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_world = std::make_unique<UpdateWorld>(m_authority, m_serverConfiguration); }

    void refuses_data();
    void refuses();
    void stopsWhenTheDiskIsFull();
    void refusesServersThatAreNotTrusted();
    void refusesToStart();
    void refusesWithoutAnInstaller();

private:
    const TestAuthority m_authority;
    const QSslConfiguration m_serverConfiguration =
        m_authority.serverConfiguration(u"IP:127.0.0.1"_qs);
    std::unique_ptr<UpdateWorld> m_world;
};

void UpdaterRefusalTest::refuses_data()
{
    QTest::addColumn<Refusal>("refusal");
    QTest::addColumn<bool>("isOffered");
    for (const Refusal& refusal : feedRefusals)
        QTest::newRow(refusal.name) << refusal << false;
    for (const Refusal& refusal : packageRefusals)
        QTest::addRow("package: %s", refusal.name) << refusal << true;
}

void UpdaterRefusalTest::refuses()
{
    QFETCH(Refusal, refusal);
    QFETCH(bool, isOffered);
    refusal.arrange(*m_world);
    const auto updater = m_world->makeUpdater();
    check(*updater);
    QCOMPARE(updater->state().phase == Phase::available, isOffered);
    if (isOffered)
        download(*updater);
    m_world->verifyFailed(*updater, refusal.error);
    updater->install();
    m_world->verifyFailed(*updater, refusal.error);
}

void UpdaterRefusalTest::stopsWhenTheDiskIsFull()
{
    const auto updater = m_world->makeUpdater();
    check(*updater);
    const FullDisk disk(1'000'000);
    download(*updater);
    m_world->verifyFailed(*updater, UpdateError::diskFull);
}

void UpdaterRefusalTest::refusesServersThatAreNotTrusted()
{
    const TestAuthority stranger;
    const QSslConfiguration configurations[]{
        m_authority.serverConfiguration(u"DNS:elsewhere.example"_qs),
        stranger.serverConfiguration(u"IP:127.0.0.1"_qs)};
    for (const QSslConfiguration& configuration : configurations) {
        m_world = std::make_unique<UpdateWorld>(m_authority, configuration);
        const auto updater = m_world->makeUpdater();
        check(*updater);
        m_world->verifyFailed(*updater, UpdateError::serverNotTrusted);
        QVERIFY(m_world->server.requests().isEmpty());
    }
}

void UpdaterRefusalTest::refusesToStart()
{
    const auto error = [this](const QUrl& address, const QString& key, const QString& version) {
        m_world->environment.programVersion = version;
        Updater updater(address, key, m_world->environment);
        check(updater);
        return updater.state().error;
    };
    const QUrl address = m_world->server.url(UpdateWorld::feedPath);
    const QString key = m_world->publisher.publicKey();
    QCOMPARE(error(address, u"key"_qs, u"1"_qs), UpdateError::publicKeyMalformed);
    QCOMPARE(error(address, key, u"unknown"_qs), UpdateError::programVersionUnknown);
    for (const QString& text : {u""_qs, u"feed.xml"_qs, u"https:///feed.xml"_qs,
                                u"http://127.0.0.1/feed.xml"_qs, u"file:///etc/hostname"_qs})
        QCOMPARE(error(QUrl(text), key, u"1"_qs), UpdateError::addressNotSecure);
    QVERIFY(m_world->server.requests().isEmpty());
}

void UpdaterRefusalTest::refusesWithoutAnInstaller()
{
    m_world->hasInstaller = false;
    const auto updater = m_world->makeUpdater();
    check(*updater);
    download(*updater);
    updater->install();
    QCOMPARE(m_world->openedPackages.size(), 1);
    m_world->verifyFailed(*updater, UpdateError::installerFailed);
}

QTEST_GUILESS_MAIN(UpdaterRefusalTest)
#include "UpdaterRefusalTest.moc"
