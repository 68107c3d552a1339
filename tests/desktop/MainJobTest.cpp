// SPDX-License-Identifier: MIT
//
// The main job with real applications, one process per step: captured and saved by one process,
// brought back by another.

#include "lab/Files.h"
#include "lab/VirtualDesktop.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace trovell::lab;
using namespace trovell::test;

class MainJobTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bringsRealApplicationsBack_data() { addWindowManagerRows(); }
    void bringsRealApplicationsBack();
};

namespace {

/// Stands in for the applications that a bare desktop does not have: writes down what it is given.
void installRecorder(const QString& home, const QString& record)
{
    const QString script =
        writeProgram(home + u"/recorder"_s, "#!/bin/sh\necho \"$@\" >>" + record.toUtf8() + "\n");
    writeFile(home + u"/.local/share/applications/recorder.desktop"_s,
              "[Desktop Entry]\nType=Application\nName=Recorder\nNoDisplay=true\nExec=" +
                  script.toUtf8() + " %u\n");
    writeFile(home + u"/.config/mimeapps.list"_s,
              "[Default Applications]\ninode/directory=recorder.desktop\n"
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
QString runStep(VirtualDesktop& desktop, const QStringList& arguments, int& exitCode)
{
    QProcess step;
    step.setProcessEnvironment(desktop.environment());
    step.setProcessChannelMode(QProcess::MergedChannels);
    step.start(QString::fromUtf8(TROVELL_MAIN_JOB), arguments);
    step.waitForFinished(60'000);
    exitCode = step.exitStatus() == QProcess::NormalExit ? step.exitCode() : -1;
    return QString::fromUtf8(step.readAll());
}

} // namespace

void MainJobTest::bringsRealApplicationsBack()
{
    QFETCH(WindowManager, windowManager);
    START_DESKTOP(windowManager);
    const QString record = desktop.homePath() + u"/opened"_s;
    installRecorder(desktop.homePath(), record);
    const QString notes = writeFile(desktop.homePath() + u"/notes.txt"_s, "Notes");

    // A terminal, GTK 3, GTK 4 and Qt; five windows on two displays.
    desktop.start("xterm", {"-T", "Log", "-geometry", "90x24+40+40"});
    desktop.start("xterm", {"-T", "Shell", "-geometry", "80x20+1700+60"});
    desktop.start("mousepad", {"--disable-server", notes.toUtf8()});
    desktop.start("gnome-calculator", {});
    desktop.start("featherpad", {"--standalone"});
    QVERIFY(inspector.waitForWindowCount(5));
    QHash<QString, quint32> ids;
    const QList<InspectedWindow> windows = inspector.waitForRest();
    for (const InspectedWindow& window : windows)
        ids.insert(window.wmClass.toLower(), window.id);
    QVERIFY(moveAndWait(inspector, ids.value(u"mousepad"_s), QRect(700, 100, 640, 420)));
    QVERIFY(moveAndWait(inspector, ids.value(u"featherpad"_s), QRect(2000, 520, 600, 400)));
    const auto saved = inspector.framesByTitle();
    QCOMPARE(saved.size(), 5);

    int exitCode = 0;
    QString output =
        runStep(desktop,
                {u"capture"_s, u"Work"_s, u"debian-xterm"_s, u"org.xfce.mousepad"_s,
                 u"org.gnome.Calculator"_s, u"featherpad"_s, u"--folder"_s, u"/usr/share"_s,
                 u"--file"_s, notes, u"--link"_s, u"example.com/shop"_s},
                exitCode);
    QVERIFY2(exitCode == 0, qPrintable(output));

    inspector.maximize(ids.value(u"mousepad"_s));
    inspector.moveWindow(inspector.windowTitled(u"Log")->id, QRect(1900, 400, 300, 200));
    inspector.moveWindow(inspector.windowTitled(u"Shell")->id, QRect(100, 500, 300, 200));
    inspector.close(ids.value(u"featherpad"_s));
    // A calculator that has just been started raises and lowers its own minimum size for a while.
    inspector.moveWindow(ids.value(u"gnome-calculator"_s), QRect(1900, 300, 360, 500));
    QVERIFY(waitUntil([&] { return inspector.windows().size() == 4; }));

    output = runStep(desktop, {u"start"_s, u"Work"_s}, exitCode);
    QVERIFY2(exitCode == 0, qPrintable(output.section(u"Frames after:"_s, 1)));
    const QList<InspectedWindow> restored = inspector.windows();
    QCOMPARE(restored.size(), 5);
    for (const InspectedWindow& window : restored) {
        const QRect frame = saved.value(window.title);
        if (!isAsSaved(inspector, inspector.waitForRest(window.id), frame))
            QCOMPARE(inspector.framesByTitle(), saved);
    }
    for (const QString& line :
         {u"launched                  FeatherPad"_s, u"alreadyRunning            Calculator"_s,
          u"alreadyRunning            Mousepad"_s, u"opened                    example.com"_s})
        QVERIFY2(output.contains(line), qPrintable(line + u'\n' + output));
    QVERIFY(waitUntil([&] {
        const QByteArray lines = readFile(record);
        return lines.contains("https://example.com/shop") && lines.contains("/usr/share") &&
               lines.contains("notes.txt");
    }));
}

QTEST_GUILESS_MAIN(MainJobTest)
#include "MainJobTest.moc"
