#include "ListBenchmark.h"

#include "Samples.h"
#include "ShownProduct.h"
#include "StoreWorkload.h"
#include "views/style/TextField.h"
#include "views/workspace/MainWorkspaceView.h"
#include "views/workspace/WorkspaceEditorView.h"
#include "views/workspace/WorkspaceSidebarList.h"

#include <QTemporaryDir>
#include <QWheelEvent>

namespace trovell::bench {

namespace {

constexpr int workspaceCount = 1000;
constexpr int steps = 200;

/// Until all that the input caused has been done and painted.
double secondsUntilPainted(QWidget& painted, const std::function<void()>& input)
{
    return secondsOf([&] {
        input();
        QApplication::processEvents();
        painted.repaint();
    });
}

Samples repeat(QWidget& painted, const std::function<void()>& input)
{
    Samples samples;
    for (int step = 0; step < steps; ++step)
        samples.push_back(secondsUntilPainted(painted, input));
    return samples;
}

void press(QWidget& widget, Qt::Key key, const QString& text = {})
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &up);
}

void turnWheel(QAbstractScrollArea& area)
{
    constexpr QPointF middle(100, 300);
    constexpr QPoint oneNotchDown(0, -120);
    QWheelEvent event(middle, area.viewport()->mapToGlobal(middle), {}, oneNotchDown, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(area.viewport(), &event);
}

void addRow(Report& report, const QString& what, const Samples& samples, double budget)
{
    const double slow = quantile(samples, 0.95);
    report.add({.what = what,
                .trovell = QStringLiteral("%1, 95 of 100 within %2")
                               .arg(formatSpread(samples), formatSeconds(slow)),
                .budget = QStringLiteral("95 of 100 ≤ ") + formatSeconds(budget),
                .isMet = slow <= budget});
}

void measureWindow(Report& report, const ViewEnvironment& environment)
{
    // A frame of a display with 60 Hz, and the longest turn of the event loop.
    constexpr double frame = 1.0 / 60;
    constexpr double turn = 0.050;
    MainWorkspaceView view(environment);
    view.resize(1180, 760);
    view.show();
    QApplication::processEvents();
    auto& list = *view.findChild<WorkspaceSidebarList*>();
    addRow(report, QStringLiteral("One notch of the wheel over the list"),
           repeat(view, [&list] { turnWheel(list); }), frame);
    addRow(report, QStringLiteral("Selecting the next workspace"),
           repeat(view, [&list] { press(list, Qt::Key_Down); }), turn);
    WorkspaceEditorView editor(environment, nullptr, &view);
    editor.open();
    QApplication::processEvents();
    auto& name = *editor.findChild<TextField*>();
    addRow(report, QStringLiteral("A letter typed in the editor's sheet"),
           repeat(view, [&name] { press(name, Qt::Key_A, QStringLiteral("a")); }), frame);
}

} // namespace

void measureList(Report& report)
{
    report.beginSection(
        QStringLiteral("The main window with 1,000 workspaces"),
        QStringLiteral("From an input until the whole window has been painted anew into memory; "
                       "20 items and 20 placements in each workspace. Medians of %1 inputs, "
                       "quartiles in brackets.")
            .arg(steps));
    const QTemporaryDir folder;
    if (!createStore(folder.path(), workspaceCount))
        return report.fail(QStringLiteral("Creating the store"));
    const auto store = openStore(folder.path());
    CrowdedDesktop crowd;
    if (!store || !crowd.error().isEmpty())
        return report.fail(QStringLiteral("Opening the store on a desktop: ") + crowd.error());
    ShownProduct product(crowd.session(), (*store)->mainContext());
    measureWindow(report, product.environment());
}

} // namespace trovell::bench
