// SPDX-License-Identifier: MIT
//
// What the capture sheet holds until it is saved, and the rules on it. Values; main thread where
// records are read.
#pragma once

#include "model/WorkspaceChoices.h"
#include "support/Expected.h"
#include "views/capture/CapturePurpose.h"
#include "windows/CapturedApplication.h"

#include <QSet>

namespace trovell {

class WindowPlacement;

/// A saved window of an application that is not among the detected ones.
struct RetainedPlacementDraft {
    QUuid placementID = {};
    QString bundleIdentifier = {};
    QString applicationName = {};
    std::optional<QString> windowTitle = {};
    bool isKept = true;

    bool operator==(const RetainedPlacementDraft&) const = default;
};

/// How far the capture is.
struct CaptureLoadState {
    enum class Kind { loaded, failed, idle, loading };

    Kind kind = Kind::idle;
    /// Of `loaded`: applications were listed without their windows.
    bool appsOnly = false;
    /// Of `failed`: why.
    Message message = {};

    bool operator==(const CaptureLoadState&) const = default;
};

struct CaptureDraft {
    QString name = {};
    WorkspaceChoices choices = {};
    QList<CapturedApplication> applications = {};
    QList<RetainedPlacementDraft> retainedPlacements = {};
};

/// The placements of a workspace in the order in which they were appended.
[[nodiscard]] QList<const WindowPlacement*> placementsInOrder(const TrovellWorkspace& workspace);

/// What the sheet starts with. `workspace` is null for `create`, and where it was deleted.
[[nodiscard]] CaptureDraft makeCaptureDraft(CapturePurpose purpose,
                                            const TrovellWorkspace* workspace);

/// The applications a capture is limited to: those that an updated workspace starts.
[[nodiscard]] std::optional<QSet<QString>> captureFilter(CapturePurpose purpose,
                                                         const TrovellWorkspace* workspace);

/// The saved windows of applications that are not in `applications`, in the order in which they
/// were appended. Fails when they cannot be read, with why in the product's words: a save with a
/// list that lacks some would delete them.
[[nodiscard]] Expected<QList<RetainedPlacementDraft>, Message>
buildRetainedPlacements(CapturePurpose purpose, const TrovellWorkspace* workspace,
                        const QList<CapturedApplication>& applications);

/// Of all applications, included or not.
[[nodiscard]] QSet<QString>
detectedBundleIdentifiers(const QList<CapturedApplication>& applications);

[[nodiscard]] QSet<QUuid> keptPlacementIDs(const QList<RetainedPlacementDraft>& placements);

[[nodiscard]] qsizetype includedApplicationCount(const QList<CapturedApplication>& applications);
/// Included applications that are to become launch items.
[[nodiscard]] qsizetype launchItemCount(const QList<CapturedApplication>& applications);
/// Included windows of included applications.
[[nodiscard]] QList<CapturedWindow> includedWindows(const QList<CapturedApplication>& applications);

[[nodiscard]] bool isSaveDisabled(CapturePurpose purpose, const CaptureDraft& draft);

} // namespace trovell
