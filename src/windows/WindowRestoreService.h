// SPDX-License-Identifier: MIT
//
// Puts an application's windows back where a workspace saved them. One call is one attempt: the
// launcher decides whether to try again. Main thread; windows and placements are paired on a
// worker.
#pragma once

#include "support/Clock.h"
#include "windows/RestorePlan.h"

#include <QCoro/QCoroTask>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPromise>

#include <memory>
#include <optional>

namespace trovell {

/// What one launch remembers of windows from one attempt to the next. Main thread.
struct RestoreRun {
    /// The windows that stood when it began; none is asked about where that does not matter.
    std::optional<QFuture<DesktopSnapshot>> earlier = {};
    /// By identifier.
    QHash<QString, ApplicationWindows> applications = {};
    /// In the order in which they were asked for, each window once.
    QList<PlannedMove> moves = {};
    /// As last read.
    std::optional<int> desktopInView = {};
    /// Nobody waits any more: attempts that are still under way move nothing.
    bool isOver = false;
};

class WindowRestoreService {
public:
    WindowRestoreService(WindowSystem& windowSystem, Clock& clock);

    /// Before anything of a launch is opened, for the applications whose windows it will restore.
    [[nodiscard]] std::shared_ptr<RestoreRun> beginRun(const QSet<QString>& identifiers);

    /// `placements` all belong to one application and have different ids. Several calls for
    /// different applications may run at the same time: those of one turn of the event loop read
    /// the desktop together, after the last of them; then each moves its windows by itself. A
    /// window that served a placement of the run serves no other one.
    [[nodiscard]] QCoro::Task<WindowRestoreAttempt>
    restorePlacements(QList<WindowPlacementSnapshot> placements,
                      std::shared_ptr<RestoreRun> run = std::make_shared<RestoreRun>());

    /// When all windows have their places: stacks them as they were saved, and shows the virtual
    /// desktop that they all lie on if it is another one. Attempts that are still under way move
    /// nothing any more.
    QCoro::Task<> endRun(std::shared_ptr<RestoreRun> run);

    /// Brings every window that the run moved and that is still there back to where it stood; a
    /// result line for each.
    [[nodiscard]] QCoro::Task<QList<LaunchResult>> putBack(std::shared_ptr<const RestoreRun> run);

private:
    struct Round {
        QList<RestoreGroup> groups;
        /// In the order of the groups.
        QPromise<QList<WindowRestorePlan>> plans;
    };
    /// The one that calls of this turn take part in.
    [[nodiscard]] std::shared_ptr<Round> nextRound();
    /// Once for each run; several calls may wait for it.
    static QCoro::Task<> noteEarlierWindows(std::shared_ptr<RestoreRun> run);
    QCoro::Task<> run(std::shared_ptr<Round> round);

    WindowSystem& m_windowSystem;
    Clock& m_clock;
    std::shared_ptr<Round> m_nextRound;
    QObject m_context;
};

} // namespace trovell
