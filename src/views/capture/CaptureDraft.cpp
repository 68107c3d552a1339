// SPDX-License-Identifier: MIT

#include "views/capture/CaptureDraft.h"

#include "model/TrovellWorkspace.h"
#include "support/Message.h"

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

QList<const WindowPlacement*> placementsInOrder(const TrovellWorkspace& workspace)
{
    QList<const WindowPlacement*> placements;
    // This reads what is only stored yet.
    if (workspace.sortedPlacements().isEmpty())
        return placements;
    for (const auto& placement : workspace.placements().loaded()) {
        if (!placement->isRemoved())
            placements.append(placement.get());
    }
    return placements;
}

CaptureDraft makeCaptureDraft(CapturePurpose purpose, const TrovellWorkspace* workspace)
{
    CaptureDraft draft;
    if (purpose == CapturePurpose::create || !workspace)
        return draft;
    draft.name = workspace->name();
    if (purpose == CapturePurpose::saveAsNew)
        draft.name += u" Variant"_s;
    draft.choices.symbolName = workspace->symbolName();
    draft.choices.accentIdentifier = workspace->accentIdentifier();
    return draft;
}

std::optional<QSet<QString>> captureFilter(CapturePurpose purpose,
                                           const TrovellWorkspace* workspace)
{
    if (purpose != CapturePurpose::update)
        return std::nullopt;
    QSet<QString> filter;
    const QList<WorkspaceItem*> items =
        workspace ? workspace->sortedItems() : QList<WorkspaceItem*>();
    for (const WorkspaceItem* item : items) {
        if (item->typeRawValue() == rawValue(WorkspaceItemType::application) &&
            item->bundleIdentifier())
            filter.insert(*item->bundleIdentifier());
    }
    return filter;
}

Expected<QList<RetainedPlacementDraft>, Message>
buildRetainedPlacements(CapturePurpose purpose, const TrovellWorkspace* workspace,
                        const QList<CapturedApplication>& applications)
{
    QList<RetainedPlacementDraft> retained;
    if (purpose == CapturePurpose::create || !workspace)
        return retained;
    const QSet<QString> detected = detectedBundleIdentifiers(applications);
    const QList<const WindowPlacement*> placements = placementsInOrder(*workspace);
    if (placements.size() != workspace->placementCount())
        return Unexpected<Message>(
            u"The saved layout of this workspace could not be read. Try again later."_key);
    for (const WindowPlacement* placement : placements) {
        if (!detected.contains(placement->bundleIdentifier()))
            retained.append(retainedDraft(*placement));
    }
    return retained;
}

QSet<QString> detectedBundleIdentifiers(const QList<CapturedApplication>& applications)
{
    QSet<QString> identifiers;
    for (const CapturedApplication& application : applications)
        identifiers.insert(application.bundleIdentifier);
    return identifiers;
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

qsizetype includedApplicationCount(const QList<CapturedApplication>& applications)
{
    return std::ranges::count_if(applications, &CapturedApplication::isIncluded);
}

qsizetype launchItemCount(const QList<CapturedApplication>& applications)
{
    return std::ranges::count_if(applications, [](const CapturedApplication& application) {
        return application.isIncluded && application.addAsLaunchItem;
    });
}

QList<CapturedWindow> includedWindows(const QList<CapturedApplication>& applications)
{
    QList<CapturedWindow> included;
    for (const CapturedApplication& application : applications) {
        if (application.isIncluded)
            std::ranges::copy_if(application.windows, std::back_inserter(included),
                                 &CapturedWindow::isIncluded);
    }
    return included;
}

bool isSaveDisabled(CapturePurpose purpose, const CaptureDraft& draft)
{
    if (purpose == CapturePurpose::update)
        return false;
    if (draft.name.trimmed().isEmpty())
        return true;
    return launchItemCount(draft.applications) == 0 &&
           includedWindows(draft.applications).isEmpty() &&
           keptPlacementIDs(draft.retainedPlacements).isEmpty();
}

} // namespace trovell
