// SPDX-License-Identifier: MIT
//
// Puts an application's windows back where a workspace saved them. One call is one attempt: the
// launcher decides whether to try again. Main thread; windows and placements are paired on a
// worker.
#pragma once

#include "display/NormalizedFrame.h"
#include "results/LaunchResult.h"
#include "support/Clock.h"
#include "windows/StoredForms.h"
#include "windows/WindowPairing.h"
#include "windows/WindowSystem.h"

#include <QCoro/QCoroTask>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPromise>
#include <QRectF>
#include <QUuid>

#include <memory>
#include <optional>

namespace trovell {

class WindowPlacement;

/// The virtual desktop of a saved window.
struct SavedDesktop {
    /// Counted from 0, at the time of the capture.
    int index = 0;
    /// Empty where it had none. Tells desktops apart before the index does.
    QString name = {};
    bool isAll = false;

    bool operator==(const SavedDesktop&) const = default;
};

/// A saved window as a plain value, so that restoring never touches a record.
struct WindowPlacementSnapshot {
    QUuid id;
    QString bundleIdentifier;
    QString applicationName;
    std::optional<QString> windowTitleHint;
    std::optional<QString> windowRole;
    std::optional<QString> windowSubrole;
    qint64 windowIndexHint = 0;
    NormalizedFrame normalizedFrame;
    /// Screen coordinates. Carried along; a window is placed by its normalized frame.
    QRectF absoluteFrame;
    DisplayFingerprint displayFingerprint;
    /// None where it was not remembered or is not to come back, as all that follows.
    std::optional<WindowStates> states = {};
    std::optional<SavedDesktop> virtualDesktop = {};
    /// Among the windows of the workspace, 0 at the bottom.
    std::optional<qint64> stackingIndex = {};
    /// Its application opens another window when it has too few.
    bool opensMissingWindow = false;

    bool operator==(const WindowPlacementSnapshot& other) const;
};

[[nodiscard]] WindowPlacementSnapshot makeSnapshot(const WindowPlacement& placement);

/// What became of each placement of one attempt: every id is a key of exactly one of the two.
struct WindowRestoreAttempt {
    QHash<QUuid, LaunchResult> completed;
    /// Worth another try, with the reason.
    QHash<QUuid, Message> retryableDetails;
    /// Beside some of those reasons.
    QHash<QUuid, Message> advice = {};
};

/// What one launch remembers of windows from one attempt to the next. Main thread.
struct RestoreRun {
    /// The windows that stood when it began; none is asked about where that does not matter.
    std::optional<QFuture<DesktopSnapshot>> earlier = {};
    /// By identifier.
    QHash<QString, ApplicationWindows> applications = {};
    /// Nobody waits any more: attempts that are still under way move nothing.
    bool isOver = false;
};

/// One application's part of a reading of the desktop: what became of placements already, and what
/// is to be moved.
struct WindowRestorePlan {
    WindowRestoreAttempt attempt;
    ApplicationWindows known;
    QList<WindowPlacementSnapshot> moved;
    /// In the order of `moved`.
    QList<FrameRequest> requests;
};

/// Where a placement's window goes: desktop coordinates, wholly inside the visible frame of
/// the display that fits best, at least 240 × 160 where that display allows. None without a
/// display.
[[nodiscard]] std::optional<QRectF> restoreTarget(const WindowPlacementSnapshot& placement,
                                                  const StoredDisplays& displays);

/// The placements of one call, and what is known of their application.
struct RestoreGroup {
    QList<WindowPlacementSnapshot> placements;
    ApplicationWindows known;
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
