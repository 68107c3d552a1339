// The updater with a real https server: what it does when all goes well, and when the user
// changes their mind. What it refuses: see UpdaterRefusalTest.
#include "support/TestFiles.h"
#include "support/UpdateWorld.h"

#include <QSignalSpy>
#include <QtConcurrentRun>
#include <QTest>
#include <QThreadPool>

#include <semaphore>

using namespace trovell;
using namespace trovell::test;
using Phase = UpdateState::Phase;

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

} // namespace

class UpdaterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_world = std::make_unique<UpdateWorld>(m_authority, m_serverConfiguration); }

    void installsAnUpdate();
    void tellsNothingAboutTheUser();
    void neverDowngrades();
    void runsOneCheckAtATime();
    void cancels();
    void cancelsFromWithinItsOwnSignal();
    void dismissesAnUpdate();

private:
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

    const TestAuthority m_authority;
    const QSslConfiguration m_serverConfiguration =
        m_authority.serverConfiguration(u"IP:127.0.0.1"_qs);
    std::unique_ptr<UpdateWorld> m_world;
};

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
    const QString package = m_world->openedPackages[0];
    QCOMPARE(QFile::permissions(package) & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(readFile(package) == m_world->package);
}

void UpdaterTest::tellsNothingAboutTheUser()
{
    m_world->server.redirect(u"/feed.xml"_qs, "/moved.xml");
    m_world->server.serve(u"/moved.xml"_qs,
                          {.body = feedOf({m_world->item}), .headers = {"ETag: \"1\""}});
    const auto updater = m_world->makeUpdater();
    for (int round = 0; round < 2; ++round) {
        check(*updater);
        QCOMPARE(updater->state().phase, Phase::available);
    }
    const QList<QByteArray> requests = m_world->server.requests();
    QCOMPARE(requests.size(), 4);
    for (const QByteArray& request : requests) {
        QStringList lines = QString::fromLatin1(request).toLower().trimmed().split(u"\r\n"_qs);
        lines.removeFirst();
        lines.sort();
        const QString host = m_world->server.url({}).authority();
        QCOMPARE(lines.join(u'|'),
                 u"accept-encoding: identity|accept-language: *|cache-control: no-cache|"
                 "connection: keep-alive|host: "_qs +
                     host + u"|pragma: no-cache|user-agent: trovell"_qs);
    }
}

void UpdaterTest::neverDowngrades()
{
    const auto updater = m_world->makeUpdater();
    for (const QString& offered : {u"1.4.9"_qs, u"1.5.0"_qs, u"1.5-rc1"_qs}) {
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

void UpdaterTest::cancels()
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
        m_world->verifyFailed(*updater, UpdateError::cancelled);
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

QTEST_GUILESS_MAIN(UpdaterTest)
#include "UpdaterTest.moc"
