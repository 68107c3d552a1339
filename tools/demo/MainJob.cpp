// SPDX-License-Identifier: MIT
//
// Plays the main job from the command line, one process per step: captures the windows of some
// applications into a stored workspace, lists frames, and starts a stored workspace and checks
// where its windows ended. tools/demo/play puts the steps together.
//
//   main-job capture NAME APPLICATION… [--folder PATH] [--file PATH] [--link URL]
//   main-job frames NAME
//   main-job start NAME
//   main-job windows APPLICATION… [--remember FILE | --compare FILE]
//
// The last one needs no workspace: it lists frames, writes them down, or compares them with those
// written down. --store FOLDER keeps the workspaces elsewhere than the program does.

#include "app/AppDependencies.h"
#include "app/AppFolders.h"
#include "launch/URLValidation.h"
#include "model/WorkspaceStore.h"
#include "platform/BackEnds.h"
#include "platform/x11/X11WindowId.h"
#include "platform/x11/X11WindowReader.h"
#include "preferences/AppConfiguration.h"
#include "preferences/PreferenceStore.h"
#include "support/SystemClock.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <QThread>

#include <cstdlib>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

[[noreturn]] void fail(const QString& reason)
{
    out().flush();
    QTextStream(stderr) << reason << Qt::endl;
    std::exit(1);
}

/// Everything the program itself is made of, without its windows.
struct Program {
    PlatformAdapters platform =
        backEndFor(sessionFacts()).create(appConfiguration().bundleIdentifier);
    PreferenceStore defaults{preferencesFile()};
    SystemClock clock;
    AppDependencies dependencies{platform, defaults, clock, appConfiguration()};
    std::unique_ptr<WorkspaceStore> store;

    explicit Program(const QString& storeFolder)
    {
        auto opened = WorkspaceStore::open(storeFolder);
        if (!opened)
            fail(storeOpeningFailureText(opened.error()).productText());
        store = std::move(*opened);
    }

    TrovellWorkspace& workspace(const QString& name)
    {
        const QList<TrovellWorkspace*> workspaces = store->mainContext().workspaces();
        for (TrovellWorkspace* workspace : workspaces) {
            if (workspace->name() == name)
                return *workspace;
        }
        fail(u"There is no workspace named %1."_s.arg(name));
    }

    void save()
    {
        if (const auto saved = store->mainContext().save(); !saved)
            fail(description(saved.error()).productText());
    }

    QList<CapturedApplication> capture(const QSet<QString>& applications)
    {
        const auto captured =
            QCoro::waitFor(dependencies.windowCapture().captureApplications(applications, false));
        if (!captured)
            fail(description(captured.error()).productText());
        return *captured;
    }

    /// Captures until the windows are as wanted, for three seconds at most.
    QList<CapturedApplication>
    captureWhen(const QSet<QString>& applications,
                const std::function<bool(const QList<CapturedApplication>&)>& areAsWanted)
    {
        const QDeadlineTimer deadline(std::chrono::seconds(3));
        QList<CapturedApplication> windows = capture(applications);
        while (!areAsWanted(windows) && !deadline.hasExpired()) {
            QThread::msleep(100);
            windows = capture(applications);
        }
        return windows;
    }
};

void printFrame(const QString& application, const QString& title, const QRectF& frame,
                const QString& display)
{
    out() << u"  %1  %2  %3×%4 at (%5, %6) on %7"_s.arg(application, -28)
                 .arg(title.left(34), -34)
                 .arg(frame.width())
                 .arg(frame.height())
                 .arg(frame.x())
                 .arg(frame.y())
                 .arg(display)
          << Qt::endl;
}

void printFrames(const QList<CapturedApplication>& applications)
{
    for (const CapturedApplication& application : applications) {
        for (const CapturedWindow& window : application.windows)
            printFrame(application.applicationName, window.windowTitle.value_or(QString()),
                       window.frame, window.display.fingerprint.localizedName);
    }
}

WorkspaceItem& addItem(Program& program, TrovellWorkspace& workspace, WorkspaceItemType type,
                       const QString& name, const QUrl& url)
{
    WorkspaceItemValues values;
    values.typeRawValue = rawValue(type);
    values.displayName = name;
    values.sortOrder = workspace.itemCount();
    values.urlString = url.toString(QUrl::FullyEncoded);
    if (url.isLocalFile())
        values.bookmarkData = program.platform.resourceSystem->createBookmark(url);
    return workspace.appendItem(std::make_unique<WorkspaceItem>(values));
}

void addApplication(Program& program, TrovellWorkspace& workspace,
                    const CapturedApplication& application)
{
    const QUrl url(application.applicationURLString.value_or(QString()));
    WorkspaceItem& item = addItem(program, workspace, WorkspaceItemType::application,
                                  application.applicationName, url);
    item.setBundleIdentifier(application.bundleIdentifier);
    item.setApplicationPath(url.toLocalFile());
    for (const CapturedWindow& window : application.windows)
        workspace.appendPlacement(makePlacement(window));
}

void addPaths(Program& program, TrovellWorkspace& workspace, WorkspaceItemType type,
              const QStringList& paths)
{
    for (const QString& path : paths)
        addItem(program, workspace, type, QFileInfo(path).fileName(), QUrl::fromLocalFile(path));
}

void capture(Program& program, const QString& name, const QStringList& applications,
             const QCommandLineParser& options)
{
    const auto captured = program.capture({applications.begin(), applications.end()});
    WorkspaceValues values;
    values.name = name;
    values.sortOrder = program.store->mainContext().workspaces().size();
    TrovellWorkspace& workspace =
        program.store->mainContext().insert(std::make_unique<TrovellWorkspace>(values));
    for (const CapturedApplication& application : captured)
        addApplication(program, workspace, application);
    addPaths(program, workspace, WorkspaceItemType::folder, options.values(u"folder"_s));
    addPaths(program, workspace, WorkspaceItemType::file, options.values(u"file"_s));
    const QStringList links = options.values(u"link"_s);
    for (const QString& link : links) {
        const auto url = validatedWebURL(link);
        if (!url)
            fail(description(url.error()).productText());
        addItem(program, workspace, WorkspaceItemType::webLink, url->host(), *url);
    }
    program.save();
    printFrames(captured);
}

QSet<QString> applicationsOf(const TrovellWorkspace& workspace)
{
    QSet<QString> applications;
    const QList<WindowPlacement*> placements = workspace.sortedPlacements();
    for (const WindowPlacement* placement : placements)
        applications.insert(placement->bundleIdentifier());
    return applications;
}

void printReport(const WorkspaceLaunchReport& report)
{
    for (const LaunchResult& line : report.results)
        out() << u"  %1  %2  %3"_s.arg(rawValue(line.kind), -24)
                     .arg(line.name.productText(), -34)
                     .arg(line.detail.productText())
              << Qt::endl;
    out() << u"  "_s << report.summary().productText() << Qt::endl;
}

/// The window of a placement as it stands now; titles tell the windows of an application apart.
std::optional<CapturedWindow> currentWindow(const QList<CapturedApplication>& applications,
                                            const WindowPlacement& placement)
{
    for (const CapturedApplication& application : applications) {
        for (const CapturedWindow& window : application.windows) {
            if (window.bundleIdentifier == placement.bundleIdentifier() &&
                window.windowTitle == placement.windowTitleHint())
                return window;
        }
    }
    return std::nullopt;
}

/// The smallest frame that the window's own size hints allow; null when they cannot be read.
QSizeF smallestFrame(const X11Connection& connection, xcb_window_t window)
{
    const X11FrameRequest frame(connection, window);
    const auto hints = connection.requestProperty(window, XCB_ATOM_WM_NORMAL_HINTS);
    connection.finishBatch();
    const std::optional<DecoratedWindow> decorated = frame.receive(connection);
    const SizeHints sizeHints = makeSizeHints(propertyNumbers(connection.reply(hints)));
    if (!decorated)
        return {};
    const PixelRectangle smallest = allowedFrame({}, *decorated, sizeHints);
    return QSizeF(smallest.width, smallest.height);
}

QSizeF smallestFrame(Program& program, const CapturedWindow& captured)
{
    WindowSystem& windowSystem = *program.platform.windowSystem;
    const DesktopQuestion question{.applications = DesktopQuestion::Applications::named,
                                   .identifiers = {captured.bundleIdentifier},
                                   .windows = true};
    const auto applications = windowSystem.ask(question).result().applications;
    const auto windows = applications.value(0).windows;
    const WindowId window = windows.value(captured.windowIndex).id;
    return smallestFrame(X11Connection(QByteArray()), windowOf(window));
}

/// A program may raise the minimum size of its window between two runs; then it is as small as it
/// lets itself be.
bool isInPlace(const QRectF& saved, const QRectF& now, const QSizeF& smallest)
{
    const auto isAllowed = [](double length, double wanted, double least) {
        return length == wanted || (length > wanted && length == least);
    };
    return now.left() == saved.left() && now.bottom() == saved.bottom() &&
           isAllowed(now.width(), saved.width(), smallest.width()) &&
           isAllowed(now.height(), saved.height(), smallest.height());
}

QStringList misplacedWindows(Program& program, const TrovellWorkspace& workspace,
                             const QList<CapturedApplication>& now)
{
    QStringList misplaced;
    const QList<WindowPlacement*> placements = workspace.sortedPlacements();
    for (const WindowPlacement* placement : placements) {
        const auto window = currentWindow(now, *placement);
        if (!window || !isInPlace(placement->savedAbsoluteFrame(), window->frame,
                                  smallestFrame(program, *window)))
            misplaced.append(placement->windowTitleHint().value_or(placement->applicationName()));
    }
    return misplaced;
}

void start(Program& program, const QString& name)
{
    TrovellWorkspace& workspace = program.workspace(name);
    AppDependencies& dependencies = program.dependencies;
    const bool isTrusted = QCoro::waitFor(dependencies.accessibility().refresh());
    QCoro::waitFor(dependencies.launcher().start(&workspace, isTrusted,
                                                 dependencies.preferences().launchTimeout()));
    program.save();
    out() << u"Launch report:"_s << Qt::endl;
    printReport(*dependencies.launcher().latestReport());
    // Programs that have just started may still be laying themselves out.
    const QList<CapturedApplication> now =
        program.captureWhen(applicationsOf(workspace), [&](const auto& windows) {
            return misplacedWindows(program, workspace, windows).isEmpty();
        });
    out() << u"Frames after:"_s << Qt::endl;
    printFrames(now);
    const QStringList misplaced = misplacedWindows(program, workspace, now);
    if (!misplaced.isEmpty())
        fail(u"Not where they were saved: "_s + misplaced.join(u", "_s));
    out() << u"Every window is back where it stood."_s << Qt::endl;
}

// A line for each window: application, title, frame and smallest size, separated by tabs.

QStringList describe(Program& program, const QList<CapturedApplication>& applications)
{
    QStringList lines;
    for (const CapturedApplication& application : applications) {
        for (const CapturedWindow& window : application.windows) {
            const QRectF& frame = window.frame;
            const QSizeF smallest = smallestFrame(program, window);
            lines.append(
                u"%1\t%2\t%3\t%4\t%5\t%6\t%7\t%8"_s
                    .arg(application.bundleIdentifier, window.windowTitle.value_or(QString()))
                    .arg(frame.x())
                    .arg(frame.y())
                    .arg(frame.width())
                    .arg(frame.height())
                    .arg(smallest.width())
                    .arg(smallest.height()));
        }
    }
    return lines;
}

bool isInPlace(const QString& saved, const QStringList& now)
{
    const auto smallest = [](const QString& line) {
        const QStringList parts = line.split(u'\t');
        return QSizeF(parts.value(6).toDouble(), parts.value(7).toDouble());
    };
    const auto frame = [](const QString& line) {
        const QStringList parts = line.split(u'\t');
        return QRectF(parts.value(2).toDouble(), parts.value(3).toDouble(),
                      parts.value(4).toDouble(), parts.value(5).toDouble());
    };
    // A document may have another title now, as long as no other window has the old one.
    const bool isTitled = std::any_of(now.begin(), now.end(), [&](const QString& line) {
        return line.section(u'\t', 0, 1) == saved.section(u'\t', 0, 1);
    });
    const int parts = isTitled ? 1 : 0;
    return std::any_of(now.begin(), now.end(), [&](const QString& line) {
        return line.section(u'\t', 0, parts) == saved.section(u'\t', 0, parts) &&
               isInPlace(frame(saved), frame(line), smallest(line));
    });
}

QStringList readLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(u"%1 cannot be read."_s.arg(path));
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

QStringList misplacedLines(Program& program, const QStringList& saved,
                           const QList<CapturedApplication>& now)
{
    const QStringList lines = describe(program, now);
    QStringList misplaced;
    for (const QString& line : saved) {
        if (!isInPlace(line, lines))
            misplaced.append(line.section(u'\t', 1, 1));
    }
    return misplaced;
}

void compareWindows(Program& program, const QSet<QString>& applications, const QString& path)
{
    const QStringList saved = readLines(path);
    const QList<CapturedApplication> now =
        program.captureWhen(applications, [&](const auto& windows) {
            return misplacedLines(program, saved, windows).isEmpty();
        });
    printFrames(now);
    const QStringList misplaced = misplacedLines(program, saved, now);
    if (!misplaced.isEmpty())
        fail(u"Not where they were: "_s + misplaced.join(u", "_s));
    out() << u"Every window is back where it stood."_s << Qt::endl;
}

void listWindows(Program& program, const QStringList& names, const QCommandLineParser& options)
{
    const QSet<QString> applications(names.begin(), names.end());
    if (options.isSet(u"compare"_s))
        return compareWindows(program, applications, options.value(u"compare"_s));
    const QList<CapturedApplication> windows = program.capture(applications);
    printFrames(windows);
    QFile file(options.value(u"remember"_s));
    if (options.isSet(u"remember"_s) &&
        (!file.open(QIODevice::WriteOnly) ||
         file.write(describe(program, windows).join(u'\n').toUtf8()) < 0))
        fail(u"%1 cannot be written."_s.arg(file.fileName()));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({u"folder"_s, u"A folder to open."_s, u"path"_s});
    options.addOption({u"file"_s, u"A file to open."_s, u"path"_s});
    options.addOption({u"link"_s, u"A web address to open."_s, u"url"_s});
    options.addOption({u"store"_s, u"Where the workspaces are kept."_s, u"path"_s, dataFolder()});
    options.addOption({u"remember"_s, u"Write the frames down."_s, u"file"_s});
    options.addOption({u"compare"_s, u"Compare with frames written down."_s, u"file"_s});
    options.process(application);
    const QStringList arguments = options.positionalArguments();
    const QString step = arguments.value(0);
    const QString name = arguments.value(1);

    Program program(options.value(u"store"_s));
    if (step == u"capture")
        capture(program, name, arguments.mid(2), options);
    else if (step == u"frames")
        printFrames(program.capture(applicationsOf(program.workspace(name))));
    else if (step == u"start")
        start(program, name);
    else if (step == u"windows")
        listWindows(program, arguments.mid(1), options);
    else
        fail(u"Steps: capture, frames, start, windows."_s);
    return 0;
}
