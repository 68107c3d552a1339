// SPDX-License-Identifier: MIT
//
// The program as a process: what it says when it cannot start, and what it saves when it ends.

#include "app/TerminationSignals.h"
#include "lab/Files.h"
#include "lab/VirtualDesktop.h"
#include "model/WorkspaceStore.h"
#include "support/Patience.h"

#include <QtTest>

#include <csignal>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

const auto childArgument = u"--change-and-wait"_s;

/// Runs as a process of its own: changes a workspace and saves nothing.
int changeAndWait(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const TerminationSignals terminationSignals;
    StoreOptions options;
    options.automaticSaveDelay = std::chrono::hours(1);
    const auto store = WorkspaceStore::open(application.arguments().at(2), options);
    if (!store)
        return EXIT_FAILURE;
    (*store)->mainContext().workspaces().first()->setName(u"Changed"_s);
    QFile output;
    if (output.open(stdout, QIODevice::WriteOnly))
        output.write("ready\n");
    output.close();
    return QCoreApplication::exec();
}

/// What the program says, without what Qt says of windows on a screen in memory.
QStringList saidBy(QProcess& program)
{
    static const QRegularExpression ofTheScreen(
        u"This plugin does not support|systemTrayWindowChanged"_s);
    QStringList lines =
        QString::fromUtf8(program.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString& line) { return line.contains(ofTheScreen); });
    return lines;
}

} // namespace

class ProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void savesWhenAskedToEnd()
    {
        const QTemporaryDir folder;
        {
            const auto store = WorkspaceStore::open(folder.path());
            QVERIFY(store);
            (*store)->mainContext().insert(std::make_unique<TrovellWorkspace>(WorkspaceValues()));
            QVERIFY((*store)->mainContext().save());
        }
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {childArgument, folder.path()});
        QVERIFY(child.waitForReadyRead());
        kill(pid_t(child.processId()), SIGTERM);
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        const auto store = WorkspaceStore::open(folder.path());
        QVERIFY(store);
        QCOMPARE((*store)->mainContext().workspaces().first()->name(), u"Changed"_s);
    }

    void saysWhyItCannotStart()
    {
        const QTemporaryDir home;
        const QDir folder(home.filePath(u"data/trovell"_s));
        QVERIFY(folder.mkpath(u"."_s) && WorkspaceStore::open(folder.path()));
        // Whatever the store's file is named.
        const QStringList files = folder.entryList(QDir::Files);
        for (const QString& name : files)
            lab::writeFile(folder.filePath(name), "This is no store.");
        QProcess program;
        program.setReadChannel(QProcess::StandardError);
        startProgram(program, home);
        QVERIFY(program.waitForReadyRead());
        const QString message = saidBy(program).join(u'\n');
        QVERIFY2(message.startsWith(u"Trovell could not open its local workspace store: "_s),
                 qPrintable(message));
        // The same stands in a window until somebody has read it.
        QVERIFY(!program.waitForFinished(300));
        program.terminate();
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), EXIT_FAILURE);
    }

    void endsInAnOrderlyWay()
    {
        const QTemporaryDir home;
        QProcess program;
        startProgram(program, home);
        QTRY_VERIFY(!QDir(home.filePath(u"data/trovell"_s)).isEmpty());
        QTest::qWait(300);
        QCOMPARE(program.state(), QProcess::Running);
        program.terminate();
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        // Nothing was said, and nothing but the store was written: the guide does not count as
        // seen.
        QCOMPARE(saidBy(program), QStringList());
        QCOMPARE(QDir(home.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{u"data"_s});
    }

private:
    /// The program itself, with its own folders.
    static void startProgram(QProcess& program, const QTemporaryDir& home)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"XDG_RUNTIME_DIR"_s, home.path());
        environment.insert(u"HOME"_s, home.path());
        environment.insert(u"XDG_DATA_HOME"_s, home.filePath(u"data"_s));
        environment.insert(u"XDG_CONFIG_HOME"_s, home.filePath(u"config"_s));
        program.setProcessEnvironment(environment);
        program.start(QString::fromLocal8Bit(lab::productPath()), QStringList());
        QVERIFY(program.waitForStarted());
    }
};

int main(int argc, char** argv)
{
    if (argc > 2 && QString::fromLocal8Bit(argv[1]) == childArgument)
        return changeAndWait(argc, argv);
    QCoreApplication application(argc, argv);
    ProgramTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "ProgramTest.moc"
