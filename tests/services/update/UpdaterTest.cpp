// SPDX-License-Identifier: MIT
//
// The updater with a real https server: when all goes well, when the user changes their mind, and
// what it refuses, in the right words and with nothing left on the disk.
#include "lab/Files.h"
#include "services/update/UpdateFeedParser.h"
#include "support/FullDisk.h"
#include "support/Patience.h"
#include "support/UpdateWorld.h"

#include <QtConcurrentRun>
#include <QtTest>

#include <semaphore>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;
using namespace std::chrono_literals;
using Phase = UpdateState::Phase;
using After = ServedFile::After;

namespace {

/// Keeps the worker threads busy, so that whatever is given to them waits.
class BusyWorkers {
public:
    BusyWorkers()
    {
        QThreadPool::globalInstance()->setMaxThreadCount(1);
        m_work = QtConcurrent::run([end = m_end] { end->acquire(); });
    }
    ~BusyWorkers()
    {
        m_end->release();
        m_work.waitForFinished();
        QThreadPool::globalInstance()->setMaxThreadCount(QThread::idealThreadCount());
    }
    Q_DISABLE_COPY_MOVE(BusyWorkers)

private:
    // Goes with the last of the two threads.
    std::shared_ptr<std::binary_semaphore> m_end = std::make_shared<std::binary_semaphore>(0);
    QFuture<void> m_work;
};

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

Arrange item(QString PublishedItem::* field, const QString& value)
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
    {"silent from the start",
     impatient(feed({.contentLength = 100, .breaksAt = 0, .after = After::silence})),
     UpdateError::timedOut},
    {"dripping for ever",
     impatient(feed({.contentLength = -1, .breaksAt = 0, .after = After::drip})),
     UpdateError::timedOut},
    {"too large", feed({.body = QByteArray(feedlimits::bytes + 1, ' '), .contentLength = -1}),
     UpdateError::feedTooLarge},
    {"entities", feed({.body = "<!DOCTYPE rss><rss/>"}), UpdateError::feedDeclaresEntities},
    {"package address not secure", item(&PublishedItem::address, u"http://127.0.0.1/x.deb"_s),
     UpdateError::addressNotSecure},
    {"malformed signature", item(&PublishedItem::signature, u"c2ln"_s),
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
     [](UpdateWorld& world) { world.environment.downloadFolder = u"/proc/trovell/update"_s; },
     UpdateError::folderNotWritable},
};

} // namespace

class UpdaterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_world = std::make_unique<UpdateWorld>(m_authority, m_serverConfiguration); }

    void installsAnUpdate()
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
        const AvailableUpdate expected{u"2.0"_s, u"What is <b>new</b>"_s, m_world->package.size()};
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
        QCOMPARE(m_world->files(), QStringList{u"trovell-update-trovell-2.0_amd64.deb"_s});
        QCOMPARE(m_world->openedPackages.size(), 1);
        const QString package = m_world->openedPackages[0];
        QCOMPARE(QFile::permissions(package) & ~(QFile::ReadUser | QFile::WriteUser),
                 QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY(readFile(package) == m_world->package);
    }

    void tellsNothingAboutTheUser()
    {
        m_world->server.redirect(u"/feed.xml"_s, "/moved.xml");
        m_world->server.serve(u"/moved.xml"_s,
                              {.body = feedOf({m_world->item}), .headers = {"ETag: \"1\""}});
        const auto updater = m_world->makeUpdater();
        for (int round = 0; round < 2; ++round) {
            check(*updater);
            QCOMPARE(updater->state().phase, Phase::available);
        }
        const QList<QByteArray> requests = m_world->server.requests();
        QCOMPARE(requests.size(), 4);
        for (const QByteArray& request : requests) {
            QStringList lines = QString::fromLatin1(request).toLower().trimmed().split(u"\r\n"_s);
            lines.removeFirst();
            lines.sort();
            const QString host = m_world->server.url({}).authority();
            QCOMPARE(lines.join(u'|'),
                     u"accept-encoding: identity|accept-language: *|cache-control: no-cache|"
                     "connection: keep-alive|host: "_s +
                         host + u"|pragma: no-cache|user-agent: trovell"_s);
        }
    }

    void neverDowngrades()
    {
        const auto updater = m_world->makeUpdater();
        for (const QString& offered : {u"1.4.9"_s, u"1.5.0"_s, u"1.5-rc1"_s}) {
            m_world->changeItem(&PublishedItem::version, offered);
            check(*updater);
            QCOMPARE(updater->state().phase, Phase::upToDate);
            updater->download();
            updater->install();
            QCOMPARE(updater->state().phase, Phase::upToDate);
        }
        QCOMPARE(m_world->server.requests().size(), 3);
        QCOMPARE(m_world->files(), QStringList());
    }

    void runsOneCheckAtATime()
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

    void cancels()
    {
        for (const Phase phase : {Phase::checking, Phase::downloading, Phase::verifying}) {
            const auto updater = m_world->makeUpdater();
            {
                const BusyWorkers workers;
                reach(*updater, phase);
                updater->cancel();
                QCOMPARE(m_world->files(), QStringList());
                // The same when the program ends.
                reach(*m_world->makeUpdater(), phase);
            }
            m_world->verifyFailed(*updater, UpdateError::cancelled);
            // What was under way has no say any more.
            QTest::qWait(100);
            m_world->verifyFailed(*updater, UpdateError::cancelled);
            check(*updater);
            download(*updater);
            QCOMPARE(updater->state().phase, Phase::ready);
            // From the start again, and the package that is no longer wanted goes.
            check(*updater);
            QCOMPARE(updater->state().phase, Phase::available);
            QCOMPARE(m_world->files(), QStringList());
        }
    }

    void cancelsFromWithinItsOwnSignal()
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
            m_world->verifyFailed(*updater, UpdateError::cancelled);
        }
    }

    void dismissesAnUpdate()
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

    void refuses_data()
    {
        QTest::addColumn<Refusal>("refusal");
        QTest::addColumn<bool>("isOffered");
        for (const Refusal& refusal : feedRefusals)
            QTest::newRow(refusal.name) << refusal << false;
        for (const Refusal& refusal : packageRefusals)
            QTest::addRow("package: %s", refusal.name) << refusal << true;
    }

    void refuses()
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

    void stopsWhenTheDiskIsFull()
    {
        const auto updater = m_world->makeUpdater();
        check(*updater);
        const FullDisk disk(1'000'000);
        download(*updater);
        m_world->verifyFailed(*updater, UpdateError::diskFull);
    }

    void refusesServersThatAreNotTrusted()
    {
        const TestAuthority stranger;
        const QSslConfiguration configurations[]{
            m_authority.serverConfiguration(u"DNS:elsewhere.example"_s),
            stranger.serverConfiguration(u"IP:127.0.0.1"_s)};
        for (const QSslConfiguration& configuration : configurations) {
            m_world = std::make_unique<UpdateWorld>(m_authority, configuration);
            const auto updater = m_world->makeUpdater();
            check(*updater);
            m_world->verifyFailed(*updater, UpdateError::serverNotTrusted);
            QVERIFY(m_world->server.requests().isEmpty());
        }
    }

    void refusesToStart()
    {
        const auto error = [this](const QUrl& address, const QString& key, const QString& version) {
            m_world->environment.programVersion = version;
            Updater updater(address, key, m_world->environment);
            check(updater);
            return updater.state().error;
        };
        const QUrl address = m_world->server.url(UpdateWorld::feedPath);
        const QString key = m_world->publisher.publicKey();
        QCOMPARE(error(address, u"key"_s, u"1"_s), UpdateError::publicKeyMalformed);
        QCOMPARE(error(address, key, u"unknown"_s), UpdateError::programVersionUnknown);
        for (const QString& text : {u""_s, u"feed.xml"_s, u"https:///feed.xml"_s,
                                    u"http://127.0.0.1/feed.xml"_s, u"file:///etc/hostname"_s})
            QCOMPARE(error(QUrl(text), key, u"1"_s), UpdateError::addressNotSecure);
        QVERIFY(m_world->server.requests().isEmpty());
    }

    void refusesWithoutAnInstaller()
    {
        m_world->hasInstaller = false;
        const auto updater = m_world->makeUpdater();
        check(*updater);
        download(*updater);
        updater->install();
        QCOMPARE(m_world->openedPackages.size(), 1);
        m_world->verifyFailed(*updater, UpdateError::installerFailed);
    }

private:
    /// From idle to `phase`; to verifying with busy workers only.
    static void reach(Updater& updater, Phase phase)
    {
        updater.check();
        if (phase == Phase::checking)
            return;
        wait(updater);
        updater.download();
        QTRY_COMPARE(updater.state().phase, phase);
    }

    const TestAuthority m_authority;
    const QSslConfiguration m_serverConfiguration =
        m_authority.serverConfiguration(u"IP:127.0.0.1"_s);
    std::unique_ptr<UpdateWorld> m_world;
};

QTEST_GUILESS_MAIN(UpdaterTest)
#include "UpdaterTest.moc"
