// SPDX-License-Identifier: MIT

#include "editing/CaptureDraft.h"
#include "launch/ResourceSystem.h"
#include "model/StoreContext.h"

#include <QUrl>

#include <algorithm>

namespace trovell {

namespace {

using Items = QList<EditableWorkspaceItem>;

EditableWorkspaceItem launchItem(const CapturedApplication& application, const QUrl& url,
                                 const ResourceSystem& resources)
{
    return {.id = makeRecordId(),
            .type = WorkspaceItemType::application,
            .displayName = application.applicationName,
            .urlString = url.toString(QUrl::FullyEncoded),
            .bookmarkData = resources.createBookmark(url),
            .bundleIdentifier = application.bundleIdentifier,
            .applicationPath = url.path(QUrl::FullyDecoded)};
}

/// An item for each application that is marked for it, behind `items`, except where one of the same
/// application is there already.
Expected<Items, EditingError> withLaunchItems(Items items, const CaptureDraft& draft,
                                              const ResourceSystem& resources)
{
    for (const auto& application : launchedApplications(draft.applications)) {
        const auto url = applicationURL(application, resources);
        if (!url)
            return Unexpected<EditingError>(
                EditingError{.kind = EditingError::Kind::applicationUnavailable,
                             .applicationName = application.applicationName});
        const auto isThere = [&](const EditableWorkspaceItem& item) {
            return item.bundleIdentifier == application.bundleIdentifier;
        };
        if (std::ranges::none_of(items, isThere))
            items.append(launchItem(application, *url, resources));
    }
    return items;
}

/// Copies of the items that will not be made anew from the capture.
Items copiedItems(const TrovellWorkspace& source, const QSet<QString>& detected)
{
    Items items;
    for (const WorkspaceItem* item : source.sortedItems()) {
        if (item->typeRawValue() != rawValue(WorkspaceItemType::application) ||
            !item->bundleIdentifier() || !detected.contains(*item->bundleIdentifier()))
            items.append(editableItem(*item->duplicate()));
    }
    return items;
}

/// The layout of a new workspace: the windows, and copies of the source's kept placements.
WorkspaceLayout newLayout(const CaptureDraft& draft, const TrovellWorkspace* source)
{
    const auto former = source ? source->placementsInOrder() : QList<WindowPlacement*>();
    WorkspaceLayout layout = layoutOf(draft.applications, former);
    const QSet<QUuid> kept = keptPlacementIDs(draft.retainedPlacements);
    for (const WindowPlacement* placement : former) {
        if (kept.contains(placement->id()))
            layout.added.push_back(placement->duplicate());
    }
    return layout;
}

Expected<TrovellWorkspace*, EditingError>
saveLayout(const CaptureDraft& draft, TrovellWorkspace& workspace, StoreContext& context)
{
    WorkspaceLayout layout = layoutOf(draft.applications, workspace.placementsInOrder());
    layout.kept = keptPlacementIDs(draft.retainedPlacements);
    return saveChange({.layout = std::move(layout)}, &workspace, context);
}

Expected<TrovellWorkspace*, EditingError> saveNew(const CaptureDraft& draft,
                                                  const TrovellWorkspace* source,
                                                  StoreContext& context,
                                                  const ResourceSystem& resources)
{
    const QSet<QString> detected = detectedBundleIdentifiers(draft.applications);
    auto items =
        withLaunchItems(source ? copiedItems(*source, detected) : Items(), draft, resources);
    if (!items)
        return Unexpected<EditingError>(items.error());
    return saveChange(
        {.basics = draft.basics, .items = *std::move(items), .layout = newLayout(draft, source)},
        nullptr, context);
}

} // namespace

Expected<TrovellWorkspace*, EditingError>
saveCapture(CapturePurpose purpose, const CaptureDraft& draft, TrovellWorkspace* workspace,
            StoreContext& context, const ResourceSystem& resources)
{
    if (purpose == CapturePurpose::create)
        workspace = nullptr;
    else if (!workspace || workspace->isRemoved())
        return Unexpected<EditingError>(EditingError{EditingError::Kind::deletedWhileCapturing});
    const bool updates = purpose == CapturePurpose::update;
    const auto checked =
        checkShortcut(draft.basics.choices, updates ? workspace : nullptr, context);
    if (!checked)
        return Unexpected<EditingError>(checked.error());
    return updates ? saveLayout(draft, *workspace, context)
                   : saveNew(draft, workspace, context, resources);
}

} // namespace trovell
