// SPDX-License-Identifier: MIT

#include "editing/CaptureDraft.h"

#include "editing/FormerPlacements.h"
#include "model/TrovellWorkspace.h"

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

RetainedPlacementDraft retainedDraft(const WindowPlacement& placement)
{
    return {placement.id(), placement.bundleIdentifier(), placement.applicationName(),
            placement.windowTitleHint()};
}

} // namespace

CaptureDraft makeCaptureDraft(CapturePurpose purpose, const TrovellWorkspace* workspace)
{
    CaptureDraft draft;
    if (purpose == CapturePurpose::create || !workspace)
        return draft;
    draft.basics.name = workspace->name();
    if (purpose == CapturePurpose::saveAsNew)
        draft.basics.name += u" Variant"_s;
    draft.basics.choices = {.symbolName = workspace->symbolName(),
                            .accentIdentifier = workspace->accentIdentifier()};
    return draft;
}

std::optional<QSet<QString>> captureFilter(CapturePurpose purpose,
                                           const TrovellWorkspace* workspace)
{
    if (purpose != CapturePurpose::update)
        return std::nullopt;
    QSet<QString> filter;
    const auto items = workspace ? workspace->sortedItems() : QList<WorkspaceItem*>();
    for (const WorkspaceItem* item : items) {
        if (item->typeRawValue() == rawValue(WorkspaceItemType::application) &&
            item->bundleIdentifier())
            filter.insert(*item->bundleIdentifier());
    }
    return filter;
}

Expected<QList<RetainedPlacementDraft>, EditingError>
buildRetainedPlacements(CapturePurpose purpose, const TrovellWorkspace* workspace,
                        const QList<CapturedApplication>& applications)
{
    QList<RetainedPlacementDraft> retained;
    if (purpose == CapturePurpose::create || !workspace)
        return retained;
    const auto placements = workspace->placementsInOrder();
    if (placements.size() != workspace->placementCount())
        return Unexpected<EditingError>(EditingError{EditingError::Kind::layoutUnreadable});
    for (const WindowPlacement* placement : unseenPlacements(placements, applications))
        retained.append(retainedDraft(*placement));
    return retained;
}

QSet<QUuid> keptPlacementIDs(const QList<RetainedPlacementDraft>& placements)
{
    QSet<QUuid> kept;
    for (const RetainedPlacementDraft& placement : placements) {
        if (placement.isKept)
            kept.insert(placement.placementID);
    }
    return kept;
}

bool isSaveDisabled(CapturePurpose purpose, const CaptureDraft& draft)
{
    if (purpose == CapturePurpose::update)
        return false;
    return draft.basics.name.trimmed().isEmpty() ||
           (launchedApplications(draft.applications).isEmpty() &&
            includedWindows(draft.applications).isEmpty() &&
            keptPlacementIDs(draft.retainedPlacements).isEmpty());
}

} // namespace trovell
