// SPDX-License-Identifier: MIT

#include "ListBenchmark.h"

#include "Samples.h"
#include "ShownProduct.h"
#include "StoreWorkload.h"
#include "views/editor/WorkspaceEditorView.h"
#include "views/main/MainWorkspaceView.h"
#include "views/main/WorkspaceSidebarList.h"
#include "views/style/TextField.h"

#include <QTemporaryDir>
#include <QWheelEvent>

namespace trovell::bench {

using namespace Qt::StringLiterals;

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
    report.add(
        {.what = what,
         .trovell = u"%1, 95 of 100 within %2"_s.arg(formatSpread(samples), formatSeconds(slow)),
         .budget = u"95 of 100 ≤ "_s + formatSeconds(budget),
         .isMet = slow <= budget});
}

void measureWindow(Report& report, const MainEnvironment& environment)
{
    // A frame of a display with 60 Hz, and the longest turn of the event loop.
    constexpr double frame = 1.0 / 60;
    constexpr double turn = 0.050;
    MainWorkspaceView view(environment);
    view.resize(1180, 760);
    view.show();
    QApplication::processEvents();
    auto& list = *view.findChild<WorkspaceSidebarList*>();
    addRow(report, u"One notch of the wheel over the list"_s,
           repeat(view, [&list] { turnWheel(list); }), frame);
    addRow(report, u"Selecting the next workspace"_s,
           repeat(view, [&list] { press(list, Qt::Key_Down); }), turn);
    WorkspaceEditorView editor(environment, nullptr, &view);
    editor.open();
    QApplication::processEvents();
    auto& name = *editor.findChild<TextField*>();
    addRow(report, u"A letter typed in the editor's sheet"_s,
           repeat(view, [&name] { press(name, Qt::Key_A, u"a"_s); }), frame);
}

} // namespace

void measureList(Report& report)
{
    report.beginSection(u"The main window with 1,000 workspaces"_s,
                        u"From an input until the whole window has been painted anew into memory; "
                        "20 items and 20 placements in each workspace. Medians of %1 inputs, "
                        "quartiles in brackets."_s.arg(steps));
    const QTemporaryDir folder;
    if (!createStore(folder.path(), workspaceCount))
        return report.fail(u"Creating the store"_s);
    const auto store = openStore(folder.path());
    CrowdedDesktop crowd;
    if (!store || !crowd.error().isEmpty())
        return report.fail(u"Opening the store on a desktop: "_s + crowd.error());
    ShownProduct product(crowd.session(), (*store)->mainContext());
    measureWindow(report, product.environment());
}

} // namespace trovell::bench
