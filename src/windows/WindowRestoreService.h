// Puts an application's windows back where a workspace saved them. One call is one attempt: the
// launcher decides whether to try again. Called on the main thread; the windows themselves are
// read and moved on a worker.
#pragma once

#include "display/DisplaySnapshot.h"
#include "display/NormalizedFrame.h"
#include "launch/LaunchResult.h"
#include "windows/WindowSystem.h"

#include <QCoro/QCoroTask>
#include <QHash>
#include <QList>
#include <QRectF>
#include <QThreadPool>
#include <QUuid>

#include <optional>

namespace trovell {

class WindowPlacement;

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

    bool operator==(const WindowPlacementSnapshot& other) const;
};

[[nodiscard]] WindowPlacementSnapshot makeSnapshot(const WindowPlacement& placement);

/// What became of each placement of one attempt: every id is a key of exactly one of the two.
struct WindowRestoreAttempt {
    QHash<QUuid, LaunchResult> completed;
    /// Worth another try, with the reason as a text for people.
    QHash<QUuid, QString> retryableDetails;
};

/// Where a placement's window goes: accessibility coordinates, wholly inside the visible frame of
/// the display that fits best, at least 240 × 160 where that display allows. None without a
/// display.
[[nodiscard]] std::optional<QRectF> restoreTarget(const WindowPlacementSnapshot& placement,
                                                  const QList<DisplaySnapshot>& displays);

class WindowRestoreService {
public:
    explicit WindowRestoreService(WindowSystem& windowSystem);

    /// `placements` all belong to one application and have different ids. Several calls for
    /// different applications may run at the same time.
    [[nodiscard]] QCoro::Task<WindowRestoreAttempt>
    restorePlacements(QList<WindowPlacementSnapshot> placements);

private:
    WindowSystem& m_windowSystem;
    /// Of its own, and roomy: a pass mostly waits for windows to settle, and one application that
    /// does not answer must not keep the others waiting for a thread.
    QThreadPool m_pool;
};

} // namespace trovell
