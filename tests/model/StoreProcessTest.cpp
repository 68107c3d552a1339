// SPDX-License-Identifier: MIT
//
// The store against other processes: one that holds it, and one that is killed at any moment.
#include "model/StoreFiles.h"
#include "model/WorkspaceStore.h"

#include "support/StoreContents.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

void tellParent(const QByteArray& line)
{
    const QByteArray bytes = line + '\n';
    // Past all buffers: what was told must survive the kill.
    if (::write(STDOUT_FILENO, bytes.constData(), static_cast<size_t>(bytes.size())) < 0)
        ::_exit(2);
}

/// Edits and saves for ever and tells the parent before and after each save what the store holds.
int editUntilKilled(const QString& folder, quint32 seed)
{
    auto store = WorkspaceStore::open(folder);
    if (!store) {
        tellParent("refused " + description(store.error()).productText().toUtf8());
        return 1;
    }
    StoreContext& context = (*store)->mainContext();
    tellParent("holds " + digestOf(contentsOf(context)));
    for (StoreEditor editor(seed);;) {
        editor.edit(context);
        tellParent("saves " + digestOf(contentsOf(context)));
        if (!context.save())
            return 1;
        tellParent("saved");
    }
}

/// This program again, as the process that edits.
class Child {
public:
    Child(const QString& folder, quint32 seed)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(),
                        {u"--edit"_s, folder, QString::number(seed)});
        if (!m_process.waitForStarted())
            qFatal("cannot start the child");
    }

    ~Child() { kill(); }
    Q_DISABLE_COPY_MOVE(Child)

    /// Waits for it; empty when the process has ended.
    [[nodiscard]] QByteArray readLine()
    {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead())
                return {};
        }
        return m_process.readLine().trimmed();
    }

    /// Returns everything it has told since.
    QByteArrayList kill()
    {
        m_process.kill();
        m_process.waitForFinished();
        QByteArrayList lines = m_process.readAll().split('\n');
        lines.removeLast();
        return lines;
    }

private:
    QProcess m_process;
};

} // namespace

class StoreProcessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void refusesASecondProcess();
    void survivesBeingKilled();
    void survivesBeingKilledWhileMigrating();

private:
    void killOnce(const QString& folder, QRandomGenerator& random);
    void kill(Child& child, const QString& folder);
    void note(const QByteArray& line);

    /// Digests of what the child has stored, and of what it was storing.
    QByteArray m_acknowledged;
    QByteArray m_inFlight;
    int m_savedCount = 0;
    int m_inFlightCount = 0;
};

void StoreProcessTest::refusesASecondProcess()
{
    const QTemporaryDir folder;
    auto store = openStore(folder.path());
    store->mainContext().insert(makeWorkspace(u"Work"_s, 0, 3));
    QVERIFY(store->mainContext().save());
    const QByteArray digest = digestOf(contentsOf(store->mainContext()));
    QCOMPARE(Child(folder.path(), 1).readLine(),
             "refused " + description(StoreError::inUse).productText().toUtf8());
    QVERIFY(store->mainContext().save());
    store.reset();

    // The other way round; and a process that was killed holds nothing any more.
    Child child(folder.path(), 1);
    QCOMPARE(child.readLine(), "holds " + digest);
    QCOMPARE(WorkspaceStore::open(folder.path()).error(), StoreError::inUse);
    child.kill();
    QVERIFY(WorkspaceStore::open(folder.path()));
}

void StoreProcessTest::note(const QByteArray& line)
{
    QVERIFY(!line.startsWith("refused"));
    if (line.startsWith("saves "))
        m_inFlight = line.mid(6);
    if (line == "saved") {
        m_acknowledged = std::exchange(m_inFlight, {});
        m_savedCount += 1;
    }
}

void StoreProcessTest::killOnce(const QString& folder, QRandomGenerator& random)
{
    m_inFlight.clear();
    Child child(folder, random.generate());
    if (random.bounded(5) == 0) {
        // Some die while they still open, or create, their store.
        QThread::usleep(random.bounded(60'000u));
    } else {
        QCOMPARE(child.readLine(), "holds " + m_acknowledged);
        for (int lines = random.bounded(16); lines > 0; --lines)
            note(child.readLine());
        QThread::usleep(random.bounded(5'000u));
    }
    kill(child, folder);
}

void StoreProcessTest::kill(Child& child, const QString& folder)
{
    for (const QByteArray& line : child.kill())
        note(line);
    const QByteArray stored = digestOf(storedContents(folder));
    QVERIFY(stored == m_acknowledged || stored == m_inFlight);
    m_inFlightCount += m_inFlight.isEmpty() ? 0 : 1;
    m_acknowledged = stored;
}

void StoreProcessTest::survivesBeingKilled()
{
    const auto seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    std::unique_ptr<QTemporaryDir> folder;
    for (int round = 0; round < 320; ++round) {
        if (round % 20 == 0) {
            folder = std::make_unique<QTemporaryDir>();
            m_acknowledged = digestOf({});
        }
        killOnce(folder->path(), random);
        if (QTest::currentTestFailed())
            qFatal("in round %d", round);
    }
    qInfo("%d saves acknowledged, %d killed in the middle", m_savedCount, m_inFlightCount);
    QVERIFY(m_savedCount > 300 && m_inFlightCount > 50);
}

void StoreProcessTest::survivesBeingKilledWhileMigrating()
{
    const QTemporaryDir original;
    copyVersion1Store(original.path());
    const QByteArray digest = digestOf(storedContents(original.path()));
    QRandomGenerator random(1);
    int copies = 0;
    for (int round = 0; round < 60; ++round) {
        const QTemporaryDir folder;
        copyVersion1Store(folder.path());
        m_acknowledged = digest;
        m_inFlight.clear();
        Child child(folder.path(), 1);
        QThread::usleep(random.bounded(20'000u));
        kill(child, folder.path());
        copies += QFile::exists(StoreFiles(folder.path()).copyPath());
        QCOMPARE(digestOf(storedContents(folder.path())), m_acknowledged);
        QVERIFY(!QFile::exists(StoreFiles(folder.path()).copyPath()));
    }
    qInfo("%d killed before the migration was done", copies);
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == u"--edit"_s)
        return editUntilKilled(arguments.value(2), arguments.value(3).toUInt());
    StoreProcessTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "StoreProcessTest.moc"
