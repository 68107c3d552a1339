// The updater against a real https server, well-behaved or not.
#include "services/update/Updater.h"

#include "services/update/UpdateFeedParser.h"
#include "support/FullDisk.h"
#include "support/TestAuthority.h"
#include "support/UpdatePublisher.h"
#include "support/UpdateServer.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QtConcurrentRun>
#include <QTest>
#include <QThreadPool>

#include <semaphore>

using namespace trovell;
using namespace trovell::test;
using namespace std::chrono_literals;
using Phase = UpdateState::Phase;
using After = ServedFile::After;

namespace {

const QString feedPath = u"/feed.xml"_qs;
const QString packagePath = u"/files/trovell-2.0_amd64.deb"_qs;

/// A program, its private folder, and a server that offers it an update.
struct World {
    World(const TestAuthority& authority, const QSslConfiguration& serverConfiguration)
        : server(serverConfiguration)
    {
        environment = standardUpdateEnvironment(u"1.5"_qs, [this](const QString& path) {
            openedPackages.append(path);
            return hasInstaller;
        });
        environment.downloadFolder = folder.filePath(u"trovell/update"_qs);
        environment.tls = authority.clientConfiguration();
        item = publisher.item(package, server.url(packagePath));
        item.notes = u"What is <b>new</b>"_qs;
        publish();
    }

    /// The feed with the item as it is now, and the package.
    void publish()
    {
        serveFeed({.body = feedOf({item})});
        servePackage({.body = package});
    }
    void serveFeed(const ServedFile& file) { server.serve(feedPath, file); }
    void servePackage(const ServedFile& file) { server.serve(packagePath, file); }

    std::unique_ptr<Updater> makeUpdater() const
    {
        return std::make_unique<Updater>(server.url(feedPath), publisher.publicKey(), environment);
    }

    /// What lies in the private folder.
    QStringList files() const
    {
        return QDir(environment.downloadFolder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
    UpdatePublisher publisher;
    QByteArray package = QByteArray("A package, and not a small one. ").repeated(100'000);
    PublishedItem item;
    UpdateServer server;
    UpdateEnvironment environment;
    QStringList openedPackages;
    bool hasInstaller = true;
};

/// Something wrong with the world, and what it is refused with.
struct Refusal {
    const char* name;
    std::function<void(World&)> arrange;
    UpdateError error;
};

/// Keeps the worker threads busy, so that whatever is given to them waits.
class BusyWorkers {
public:
    BusyWorkers()
    {
        QThreadPool::globalInstance()->setMaxThreadCount(1);
        m_work = QtConcurrent::run([this] { m_end.acquire(); });
    }
    ~BusyWorkers()
    {
        m_end.release();
        m_work.waitForFinished();
        QThreadPool::globalInstance()->setMaxThreadCount(QThread::idealThreadCount());
    }
    Q_DISABLE_COPY_MOVE(BusyWorkers)

private:
    std::binary_semaphore m_end{0};
    QFuture<void> m_work;
};

void changeItem(World& world, QString PublishedItem::*field, const QString& value)
{
    world.item.*field = value;
    world.publish();
}

const QList<Refusal> feedRefusals{
    {"nobody listens", [](World& world) { world.server.stopListening(); },
     UpdateError::serverUnreachable},
    {"not found", [](World& world) { world.serveFeed({.status = 404}); },
     UpdateError::serverRefused},
    {"error with an endless page",
     [](World& world) {
         world.serveFeed({.status = 500, .contentLength = -1, .breaksAt = 0, .after = After::drip});
     },
     UpdateError::serverRefused},
    {"no content", [](World& world) { world.serveFeed({.status = 204}); },
     UpdateError::serverRefused},
    {"redirect to nowhere", [](World& world) { world.serveFeed({.status = 302}); },
     UpdateError::serverRefused},
    {"redirect to http",
     [](World& world) { world.server.redirect(feedPath, "http://127.0.0.1:1/feed.xml"); },
     UpdateError::redirectNotSecure},
    {"redirect to a file",
     [](World& world) { world.server.redirect(feedPath, "file:///etc/hostname"); },
     UpdateError::redirectNotSecure},
    {"redirect to ftp", [](World& world) { world.server.redirect(feedPath, "ftp://127.0.0.1/x"); },
     UpdateError::redirectNotSecure},
    {"redirect to itself", [](World& world) { world.server.redirect(feedPath, "/feed.xml"); },
     UpdateError::tooManyRedirects},
    {"closed in the middle",
     [](World& world) { world.serveFeed({.body = feedOf({world.item}), .breaksAt = 100}); },
     UpdateError::connectionLost},
    {"cut off without a length",
     [](World& world) {
         world.serveFeed({.body = feedOf({world.item}), .contentLength = -1, .breaksAt = 100});
     },
     UpdateError::feedMalformed},
    {"silent from the start",
     [](World& world) {
         world.environment.silenceTimeout = 500ms;
         world.serveFeed({.contentLength = 100, .breaksAt = 0, .after = After::silence});
     },
     UpdateError::timedOut},
    {"dripping for ever",
     [](World& world) {
         world.environment.feedTimeout = 1s;
         world.serveFeed({.contentLength = -1, .breaksAt = 0, .after = After::drip});
     },
     UpdateError::timedOut},
    {"too large",
     [](World& world) {
         world.serveFeed({.body = QByteArray(feedlimits::bytes + 1, ' '), .contentLength = -1});
     },
     UpdateError::feedTooLarge},
    {"malformed", [](World& world) { world.serveFeed({.body = "<rss>"}); },
     UpdateError::feedMalformed},
    {"entities", [](World& world) { world.serveFeed({.body = "<!DOCTYPE rss><rss/>"}); },
     UpdateError::feedDeclaresEntities},
    {"package address not secure",
     [](World& world) {
         changeItem(world, &PublishedItem::address, u"http://127.0.0.1/trovell.deb"_qs);
     },
     UpdateError::addressNotSecure},
    {"unsigned", [](World& world) { changeItem(world, &PublishedItem::signature, {}); },
     UpdateError::signatureMissing},
    {"malformed signature",
     [](World& world) { changeItem(world, &PublishedItem::signature, u"c2ln"_qs); },
     UpdateError::signatureMalformed},
    {"package too large",
     [](World& world) { world.environment.maximumPackageBytes = world.package.size() - 1; },
     UpdateError::packageTooLarge},
};

const QList<Refusal> packageRefusals{
    {"one bit changed",
     [](World& world) {
         world.package[1'000'000] = static_cast<char>(world.package[1'000'000] ^ 1);
         world.publish();
     },
     UpdateError::signatureWrong},
    {"signed with another key",
     [](World& world) {
         changeItem(world, &PublishedItem::signature, UpdatePublisher().signature(world.package));
     },
     UpdateError::signatureWrong},
    {"longer than announced",
     [](World& world) { world.servePackage({.body = world.package + 'x'}); },
     UpdateError::packageLongerThanAnnounced},
    {"endless",
     [](World& world) {
         world.servePackage({.body = world.package,
                             .contentLength = -1,
                             .breaksAt = world.package.size(),
                             .after = After::drip});
     },
     UpdateError::packageLongerThanAnnounced},
    {"shorter than announced",
     [](World& world) { world.servePackage({.body = world.package.chopped(1)}); },
     UpdateError::packageShorterThanAnnounced},
    {"cut off without a length",
     [](World& world) {
         world.servePackage({.body = world.package, .contentLength = -1, .breaksAt = 2'000'000});
     },
     UpdateError::packageShorterThanAnnounced},
    {"closed in the middle",
     [](World& world) { world.servePackage({.body = world.package, .breaksAt = 2'000'000}); },
     UpdateError::connectionLost},
    {"silent in the middle",
     [](World& world) {
         world.environment.silenceTimeout = 500ms;
         world.servePackage(
             {.body = world.package, .breaksAt = 2'000'000, .after = After::silence});
     },
     UpdateError::timedOut},
    {"not found", [](World& world) { world.servePackage({.status = 404}); },
     UpdateError::serverRefused},
    {"redirect to http",
     [](World& world) { world.server.redirect(packagePath, "http://127.0.0.1:1/x"); },
     UpdateError::redirectNotSecure},
    {"no folder",
     [](World& world) { world.environment.downloadFolder = u"/proc/trovell/update"_qs; },
     UpdateError::folderNotWritable},
};

} // namespace

class UpdaterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_world = std::make_unique<World>(*m_authority, *m_serverConfiguration); }

    void installsAnUpdate();
    void tellsNothingAboutTheUser();
    void followsRedirectsOnHttps();
    void neverDowngrades_data();
    void neverDowngrades();
    void refusesFeeds_data();
    void refusesFeeds();
    void refusesPackages_data();
    void refusesPackages();
    void stopsWhenTheDiskIsFull();
    void refusesServersThatAreNotTrusted();
    void refusesToStart();
    void refusesWithoutAnInstaller();
    void triesAgainAfterAFailure();
    void runsOneCheckAtATime();
    void cancels_data();
    void cancels();
    void cancelsFromWithinItsOwnSignal();
    void dismissesAnUpdate();
    void leavesNothingWhenTheProgramEnds();

private:
    /// To the end of what is going on.
    static void wait(const Updater& updater)
    {
        QTRY_VERIFY_WITH_TIMEOUT(!updater.isBusy(), 60'000);
    }
    static void check(Updater& updater)
    {
        updater.check();
        wait(updater);
    }
    static void download(Updater& updater)
    {
        updater.download();
        wait(updater);
    }
    /// From idle to `phase`; to verifying with busy workers only.
    static void reach(Updater& updater, Phase phase)
    {
        updater.check();
        if (phase == Phase::checking)
            return;
        wait(updater);
        updater.download();
        QTRY_COMPARE_WITH_TIMEOUT(updater.state().phase, phase, 60'000);
    }
    /// Failed in the right words, with nothing left on the disk.
    void verifyFailed(const Updater& updater, UpdateError error) const
    {
        const UpdateState expected{
            .phase = Phase::failed, .sentence = description(error), .error = error};
        QVERIFY2(updater.state() == expected, qPrintable(updater.state().sentence));
        QVERIFY(!expected.sentence.isEmpty());
        QCOMPARE(m_world->files(), QStringList());
        QVERIFY(m_world->openedPackages.isEmpty() || error == UpdateError::installerFailed);
    }

    std::unique_ptr<TestAuthority> m_authority;
    std::unique_ptr<QSslConfiguration> m_serverConfiguration;
    std::unique_ptr<World> m_world;
};

void UpdaterTest::initTestCase()
{
    m_authority = std::make_unique<TestAuthority>();
    m_serverConfiguration =
        std::make_unique<QSslConfiguration>(m_authority->serverConfiguration(u"IP:127.0.0.1"_qs));
}

void UpdaterTest::installsAnUpdate()
{
    auto updater = m_world->makeUpdater();
    QList<Phase> phases;
    double progress = 0;
    connect(updater.get(), &Updater::stateChanged, this, [&](const UpdateState& state) {
        if (phases.isEmpty() || phases.constLast() != state.phase)
            phases.append(state.phase);
        QVERIFY(state.phase != Phase::downloading || state.progress >= progress);
        progress = state.progress;
    });
    check(*updater);
    const AvailableUpdate expected{u"2.0"_qs, u"What is <b>new</b>"_qs, m_world->package.size()};
    QCOMPARE(updater->state().update, expected);
    QCOMPARE(m_world->files(), QStringList());
    download(*updater);
    QCOMPARE(progress, 1.0);
    QVERIFY(m_world->openedPackages.isEmpty());
    updater->install();

    QVERIFY(updater->state().isHandedOver);
    const QList<Phase> expectedPhases{Phase::checking, Phase::available, Phase::downloading,
                                      Phase::verifying, Phase::ready};
    QCOMPARE(phases, expectedPhases);
    // The installer may still be at work.
    updater.reset();
    QCOMPARE(m_world->files(), QStringList{u"trovell-update-trovell-2.0_amd64.deb"_qs});
    QCOMPARE(m_world->openedPackages.size(), 1);
    QFile package(m_world->openedPackages[0]);
    QVERIFY(package.open(QIODevice::ReadOnly));
    QCOMPARE(package.permissions() & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(package.readAll() == m_world->package);
}

void UpdaterTest::tellsNothingAboutTheUser()
{
    m_world->server.redirect(u"/feed.xml"_qs, "/moved.xml");
    m_world->server.serve(u"/moved.xml"_qs, {.body = feedOf({m_world->item}),
                                             .headers = {"Set-Cookie: id=1", "ETag: \"1\""}});
    const auto updater = m_world->makeUpdater();
    for (int round = 0; round < 2; ++round) {
        check(*updater);
        QCOMPARE(updater->state().phase, Phase::available);
    }
    const QList<QByteArray> requests = m_world->server.requests();
    QCOMPARE(requests.size(), 4);
    for (const QByteArray& request : requests) {
        QList<QByteArray> lines = request.trimmed().split('\n');
        lines.removeFirst();
        for (QByteArray& line : lines)
            line = line.trimmed().toLower();
        std::sort(lines.begin(), lines.end());
        const QList<QByteArray> expected{"accept-encoding: identity",
                                         "accept-language: *",
                                         "cache-control: no-cache",
                                         "connection: keep-alive",
                                         "host: " + m_world->server.url({}).authority().toLatin1(),
                                         "pragma: no-cache",
                                         "user-agent: trovell"};
        QCOMPARE(lines, expected);
    }
}

void UpdaterTest::followsRedirectsOnHttps()
{
    m_world->server.redirect(u"/first"_qs, "/second");
    m_world->server.redirect(u"/second"_qs, m_world->server.url(packagePath).toEncoded());
    changeItem(*m_world, &PublishedItem::address, m_world->server.url(u"/first"_qs).toString());
    const auto updater = m_world->makeUpdater();
    check(*updater);
    download(*updater);
    QCOMPARE(updater->state().phase, Phase::ready);
    QCOMPARE(m_world->files(), QStringList{u"trovell-update-first"_qs});
}

void UpdaterTest::neverDowngrades_data()
{
    QTest::addColumn<QString>("offered");
    QTest::addColumn<QString>("minimumSystemVersion");
    QTest::newRow("older") << u"1.4.9"_qs << QString();
    QTest::newRow("the same") << u"1.5.0"_qs << QString();
    QTest::newRow("pre-release of the same") << u"1.5-rc1"_qs << QString();
    QTest::newRow("for a newer system") << u"2.0"_qs << u"1000"_qs;
}

void UpdaterTest::neverDowngrades()
{
    QFETCH(QString, offered);
    QFETCH(QString, minimumSystemVersion);
    m_world->item.version = offered;
    changeItem(*m_world, &PublishedItem::minimumSystemVersion, minimumSystemVersion);
    const auto updater = m_world->makeUpdater();
    check(*updater);
    QCOMPARE(updater->state().phase, Phase::upToDate);
    QVERIFY(!updater->state().sentence.isEmpty());
    updater->download();
    updater->install();
    QCOMPARE(updater->state().phase, Phase::upToDate);
    QCOMPARE(m_world->server.requests().size(), 1);
    QCOMPARE(m_world->files(), QStringList());
}

void UpdaterTest::refusesFeeds_data()
{
    QTest::addColumn<Refusal>("refusal");
    for (const Refusal& refusal : feedRefusals)
        QTest::newRow(refusal.name) << refusal;
}

void UpdaterTest::refusesFeeds()
{
    QFETCH(Refusal, refusal);
    refusal.arrange(*m_world);
    const auto updater = m_world->makeUpdater();
    check(*updater);
    verifyFailed(*updater, refusal.error);
}

void UpdaterTest::refusesPackages_data()
{
    QTest::addColumn<Refusal>("refusal");
    for (const Refusal& refusal : packageRefusals)
        QTest::newRow(refusal.name) << refusal;
}

void UpdaterTest::refusesPackages()
{
    QFETCH(Refusal, refusal);
    refusal.arrange(*m_world);
    const auto updater = m_world->makeUpdater();
    check(*updater);
    QCOMPARE(updater->state().phase, Phase::available);
    download(*updater);
    verifyFailed(*updater, refusal.error);
    updater->install();
    verifyFailed(*updater, refusal.error);
}

void UpdaterTest::stopsWhenTheDiskIsFull()
{
    const auto updater = m_world->makeUpdater();
    check(*updater);
    const FullDisk disk(1'000'000);
    download(*updater);
    verifyFailed(*updater, UpdateError::diskFull);
}

void UpdaterTest::refusesServersThatAreNotTrusted()
{
    const TestAuthority stranger;
    const QSslConfiguration configurations[]{
        m_authority->serverConfiguration(u"DNS:elsewhere.example"_qs),
        m_authority->serverConfiguration(u"IP:127.0.0.2"_qs),
        stranger.serverConfiguration(u"IP:127.0.0.1"_qs)};
    for (const QSslConfiguration& configuration : configurations) {
        m_world = std::make_unique<World>(*m_authority, configuration);
        const auto updater = m_world->makeUpdater();
        check(*updater);
        verifyFailed(*updater, UpdateError::serverNotTrusted);
        QVERIFY(m_world->server.requests().isEmpty());
    }
}

void UpdaterTest::refusesToStart()
{
    const auto error = [this](const QUrl& address, const QString& key, const QString& version) {
        m_world->environment.programVersion = version;
        Updater updater(address, key, m_world->environment);
        check(updater);
        return updater.state().error;
    };
    const QUrl address = m_world->server.url(feedPath);
    const QString key = m_world->publisher.publicKey();
    QCOMPARE(error(address, u"key"_qs, u"1"_qs), UpdateError::publicKeyMalformed);
    QCOMPARE(error(address, key, u"unknown"_qs), UpdateError::programVersionUnknown);
    for (const QString& text : {u""_qs, u"feed.xml"_qs, u"https:///feed.xml"_qs,
                                u"http://127.0.0.1/feed.xml"_qs, u"file:///etc/hostname"_qs})
        QCOMPARE(error(QUrl(text), key, u"1"_qs), UpdateError::addressNotSecure);
    QVERIFY(m_world->server.requests().isEmpty());
}

void UpdaterTest::refusesWithoutAnInstaller()
{
    m_world->hasInstaller = false;
    const auto updater = m_world->makeUpdater();
    check(*updater);
    download(*updater);
    updater->install();
    QCOMPARE(m_world->openedPackages.size(), 1);
    verifyFailed(*updater, UpdateError::installerFailed);
}

void UpdaterTest::triesAgainAfterAFailure()
{
    const auto updater = m_world->makeUpdater();
    m_world->serveFeed({.status = 503});
    check(*updater);
    verifyFailed(*updater, UpdateError::serverRefused);
    m_world->publish();
    m_world->servePackage({.body = m_world->package, .breaksAt = 1'000'000});
    check(*updater);
    download(*updater);
    verifyFailed(*updater, UpdateError::connectionLost);
    m_world->publish();
    check(*updater);
    download(*updater);
    QCOMPARE(updater->state().phase, Phase::ready);
    // From the start again, and the package that is no longer wanted goes.
    check(*updater);
    QCOMPARE(updater->state().phase, Phase::available);
    QCOMPARE(m_world->files(), QStringList());
}

void UpdaterTest::runsOneCheckAtATime()
{
    const auto updater = m_world->makeUpdater();
    QSignalSpy requested(updater.get(), &Updater::checkRequested);
    updater->check();
    check(*updater);
    QCOMPARE(updater->state().phase, Phase::available);
    updater->download();
    updater->download();
    check(*updater);
    QCOMPARE(updater->state().phase, Phase::ready);
    QCOMPARE(requested.size(), 3);
    QCOMPARE(m_world->server.requests().size(), 2);
}

void UpdaterTest::cancels_data()
{
    QTest::addColumn<Phase>("phase");
    QTest::newRow("checking") << Phase::checking;
    QTest::newRow("downloading") << Phase::downloading;
    QTest::newRow("verifying") << Phase::verifying;
}

void UpdaterTest::cancels()
{
    QFETCH(Phase, phase);
    const auto updater = m_world->makeUpdater();
    {
        const BusyWorkers workers;
        reach(*updater, phase);
        updater->cancel();
    }
    verifyFailed(*updater, UpdateError::cancelled);
    // What was under way has no say any more.
    QTest::qWait(100);
    verifyFailed(*updater, UpdateError::cancelled);
    check(*updater);
    download(*updater);
    QCOMPARE(updater->state().phase, Phase::ready);
}

void UpdaterTest::cancelsFromWithinItsOwnSignal()
{
    for (const Phase phase : {Phase::checking, Phase::downloading, Phase::verifying}) {
        const auto updater = m_world->makeUpdater();
        connect(updater.get(), &Updater::stateChanged, this, [&](const UpdateState& state) {
            const bool isUnderWay = phase != Phase::downloading || state.progress > 0.5;
            if (state.phase == phase && isUnderWay)
                updater->cancel();
        });
        check(*updater);
        download(*updater);
        verifyFailed(*updater, UpdateError::cancelled);
    }
}

void UpdaterTest::dismissesAnUpdate()
{
    const auto updater = m_world->makeUpdater();
    updater->check();
    updater->dismiss();
    QCOMPARE(updater->state().phase, Phase::checking);
    wait(*updater);
    download(*updater);
    QCOMPARE(m_world->files().size(), 1);
    updater->dismiss();
    QCOMPARE(updater->state(), UpdateState());
    QCOMPARE(m_world->files(), QStringList());
    updater->install();
    QVERIFY(m_world->openedPackages.isEmpty());
}

void UpdaterTest::leavesNothingWhenTheProgramEnds()
{
    for (const Phase phase : {Phase::checking, Phase::downloading, Phase::verifying}) {
        auto updater = m_world->makeUpdater();
        {
            const BusyWorkers workers;
            reach(*updater, phase);
            updater.reset();
        }
        QCOMPARE(m_world->files(), QStringList());
    }
}

QTEST_GUILESS_MAIN(UpdaterTest)
#include "UpdaterTest.moc"
