// The main job with real applications, one process per step: captured and saved by one process,
// brought back by another.

#include "support/LayoutSession.h"
#include "support/VirtualDesktop.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace trovell::test;

class MainJobTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bringsRealApplicationsBack_data();
    void bringsRealApplicationsBack();
};

namespace {

/// Stands in for the applications that a bare desktop does not have: writes down what it is given.
void installRecorder(const VirtualDesktop& desktop, const QString& record)
{
    const QString applications = desktop.homePath() + u"/.local/share/applications"_qs;
    QDir().mkpath(applications);
    QFile script(desktop.homePath() + u"/recorder"_qs);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho \"$@\" >>" + record.toUtf8() + "\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile entry(applications + u"/recorder.desktop"_qs);
    QVERIFY(entry.open(QIODevice::WriteOnly));
    entry.write("[Desktop Entry]\nType=Application\nName=Recorder\nNoDisplay=true\nExec=" +
                script.fileName().toUtf8() + " %u\n");
    QDir().mkpath(desktop.homePath() + u"/.config"_qs);
    QFile defaults(desktop.homePath() + u"/.config/mimeapps.list"_qs);
    QVERIFY(defaults.open(QIODevice::WriteOnly));
    defaults.write("[Default Applications]\ninode/directory=recorder.desktop\n"
                   "x-scheme-handler/https=recorder.desktop\ntext/plain=recorder.desktop\n");
}

/// Moves the client area and waits until the window manager has done it.
bool moveAndWait(DesktopInspector& inspector, quint32 id, const QRect& client)
{
    inspector.moveWindow(id, client);
    return waitUntil([&] { return inspector.waitForRest(id).client.size() == client.size(); });
}

/// Whether the window stands as it was saved. A program may raise its own minimum size between two
/// runs; then it is as small as it lets itself be.
bool isAsSaved(const DesktopInspector& inspector, const InspectedWindow& window, const QRect& saved)
{
    const QList<quint32> hints = inspector.numbers(window.id, "WM_NORMAL_HINTS");
    const QSize minimum(int(hints.value(5)), int(hints.value(6)));
    const auto isAllowed = [](int now, int then, int client, int least) {
        return now == then || (now > then && client == least);
    };
    return window.frame.topLeft() == saved.topLeft() &&
           isAllowed(window.frame.width(), saved.width(), window.client.width(), minimum.width()) &&
           isAllowed(window.frame.height(), saved.height(), window.client.height(),
                     minimum.height());
}

/// Runs a step of the main job in a process of its own and returns what it printed.
QString runStep(VirtualDesktop& desktop, const QByteArrayList& arguments, int& exitCode)
{
    QProcess step;
    step.setProcessEnvironment(desktop.environment());
    step.setProcessChannelMode(QProcess::MergedChannels);
    QStringList texts;
    for (const QByteArray& argument : arguments)
        texts.append(QString::fromUtf8(argument));
    step.start(QStringLiteral(TROVELL_MAIN_JOB), texts);
    step.waitForFinished(60'000);
    exitCode = step.exitStatus() == QProcess::NormalExit ? step.exitCode() : -1;
    return QString::fromUtf8(step.readAll());
}

} // namespace

void MainJobTest::bringsRealApplicationsBack_data()
{
    QTest::addColumn<WindowManager>("windowManager");
    for (const WindowManager windowManager : availableWindowManagers())
        QTest::addRow("%s", windowManagerName(windowManager)) << windowManager;
}

void MainJobTest::bringsRealApplicationsBack()
{
    QFETCH(WindowManager, windowManager);
    VirtualDesktop desktop(windowManager);
    QVERIFY2(desktop.isReady(), qPrintable(desktop.error()));
    DesktopInspector& inspector = desktop.inspector();
    const QString record = desktop.homePath() + u"/opened"_qs;
    installRecorder(desktop, record);
    const QByteArray notes = desktop.homePath().toUtf8() + "/notes.txt";
    QFile(QString::fromUtf8(notes)).open(QIODevice::WriteOnly);

    // A terminal, GTK 3, GTK 4 and Qt; five windows on two displays.
    desktop.start("xterm", {"-T", "Log", "-geometry", "90x24+40+40"});
    desktop.start("xterm", {"-T", "Shell", "-geometry", "80x20+1700+60"});
    desktop.start("mousepad", {"--disable-server", notes});
    desktop.start("gnome-calculator", {});
    desktop.start("featherpad", {"--standalone"});
    QVERIFY(inspector.waitForWindowCount(5));
    QHash<QString, quint32> ids;
    const QList<InspectedWindow> windows = inspector.windows();
    for (const InspectedWindow& window : windows)
        ids.insert(window.wmClass.toLower(), inspector.waitForRest(window.id).id);
    QVERIFY(moveAndWait(inspector, ids.value(u"mousepad"_qs), QRect(700, 100, 640, 420)));
    QVERIFY(moveAndWait(inspector, ids.value(u"featherpad"_qs), QRect(2000, 520, 600, 400)));
    const auto saved = framesByTitle(desktop);
    QCOMPARE(saved.size(), 5);

    int exitCode = 0;
    QString output = runStep(desktop,
                             {"capture", "Work", "debian-xterm", "org.xfce.mousepad",
                              "org.gnome.Calculator", "featherpad", "--folder", "/usr/share",
                              "--file", notes, "--link", "example.com/shop"},
                             exitCode);
    QVERIFY2(exitCode == 0, qPrintable(output));

    inspector.setMaximized(ids.value(u"mousepad"_qs), true);
    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(1900, 400, 300, 200));
    inspector.moveWindow(inspector.windowTitled(u"Shell")->id, QRect(100, 500, 300, 200));
    inspector.close(ids.value(u"featherpad"_qs));
    // A calculator that has just been started raises and lowers its own minimum size for a while.
    inspector.moveWindow(ids.value(u"gnome-calculator"_qs), QRect(1900, 300, 360, 500));
    QVERIFY(waitUntil([&] { return inspector.windows().size() == 4; }));

    output = runStep(desktop, {"start", "Work"}, exitCode);
    QVERIFY2(exitCode == 0, qPrintable(output.section(u"Frames after:"_qs, 1)));
    const QList<InspectedWindow> restored = inspector.windows();
    QCOMPARE(restored.size(), 5);
    for (const InspectedWindow& window : restored) {
        const QRect frame = saved.value(window.title);
        if (!isAsSaved(inspector, inspector.waitForRest(window.id), frame))
            QCOMPARE(framesByTitle(desktop), saved);
    }
    for (const QString& line :
         {u"launched                  FeatherPad"_qs, u"alreadyRunning            Calculator"_qs,
          u"alreadyRunning            Mousepad"_qs, u"opened                    example.com"_qs})
        QVERIFY2(output.contains(line), qPrintable(line + u'\n' + output));
    QFile opened(record);
    QVERIFY(waitUntil([&] { return opened.exists(); }));
    QVERIFY(opened.open(QIODevice::ReadOnly));
    QVERIFY(waitUntil([&] {
        opened.seek(0);
        const QByteArray lines = opened.readAll();
        return lines.contains("https://example.com/shop") && lines.contains("/usr/share") &&
               lines.contains("notes.txt");
    }));
}

QTEST_GUILESS_MAIN(MainJobTest)
#include "MainJobTest.moc"
