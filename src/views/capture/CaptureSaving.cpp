// SPDX-License-Identifier: MIT

#include "views/capture/CaptureSaving.h"

#include "launch/ResourceSystem.h"
#include "model/StoreContext.h"
#include "views/shared/StoreWriting.h"
#include "views/words/Phrases.h"

#include <QUrl>

#include <algorithm>

namespace trovell {

namespace {

/// Where the application is now; none when it is gone.
std::optional<QUrl> applicationURL(const CapturedApplication& application,
                                   const ResourceSystem& resources)
{
    const QUrl url(application.applicationURLString.value_or(QString()), QUrl::StrictMode);
    if (url.isValid())
        return url;
    return resources.applicationURL(application.bundleIdentifier);
}

std::unique_ptr<WorkspaceItem> makeLaunchItem(const CapturedApplication& application,
                                              const QUrl& url, qint64 sortOrder,
                                              const ResourceSystem& resources)
{
    return std::make_unique<WorkspaceItem>(
        WorkspaceItemValues{.typeRawValue = rawValue(WorkspaceItemType::application),
                            .displayName = application.applicationName,
                            .sortOrder = sortOrder,
                            .urlString = url.toString(QUrl::FullyEncoded),
                            .bookmarkData = resources.createBookmark(url),
                            .bundleIdentifier = application.bundleIdentifier,
                            .applicationPath = url.path(QUrl::FullyDecoded)});
}

bool isDetectedApplication(const WorkspaceItem& item, const QSet<QString>& detected)
{
    return item.typeRawValue() == rawValue(WorkspaceItemType::application) &&
           item.bundleIdentifier() && detected.contains(*item.bundleIdentifier());
}

void appendWindows(TrovellWorkspace& workspace, const QList<CapturedApplication>& applications)
{
    for (const CapturedWindow& window : includedWindows(applications))
        workspace.appendPlacement(makePlacement(window));
}

std::unique_ptr<TrovellWorkspace> makeWorkspace(const CaptureDraft& draft,
                                                const StoreContext& context)
{
    auto workspace = std::make_unique<TrovellWorkspace>(
        WorkspaceValues{.name = draft.name.trimmed(),
                        .symbolName = draft.choices.symbolName,
                        .accentIdentifier = draft.choices.accentIdentifier,
                        .sortOrder = context.workspaces().size()});
    workspace->setShortcut(draft.choices.shortcut());
    return workspace;
}

Expected<TrovellWorkspace*, WorkspaceCaptureSaveError>
insertWorkspace(const CaptureDraft& draft, const TrovellWorkspace* source, StoreContext& context,
                const ResourceSystem& resources)
{
    auto items = source ? itemsForSaveAsNew(*source, draft.applications, resources)
                        : makeLaunchItems(draft.applications, 0, resources);
    if (!items)
        return Unexpected<WorkspaceCaptureSaveError>(items.error());
    auto workspace = makeWorkspace(draft, context);
    for (auto& item : *items)
        workspace->appendItem(std::move(item));
    appendWindows(*workspace, draft.applications);
    return &context.insert(std::move(workspace));
}

void appendKeptCopies(TrovellWorkspace& workspace, const TrovellWorkspace& source,
                      const QList<RetainedPlacementDraft>& retained)
{
    const QSet<QUuid> kept = keptPlacementIDs(retained);
    for (const WindowPlacement* placement : placementsInOrder(source)) {
        if (kept.contains(placement->id()))
            workspace.appendPlacement(placement->duplicate());
    }
}

bool isGone(CapturePurpose purpose, const TrovellWorkspace* workspace)
{
    return purpose != CapturePurpose::create && (!workspace || workspace->isRemoved());
}

/// Why nothing may be written; empty when it may.
Message objection(CapturePurpose purpose, const CaptureDraft& draft,
                  const TrovellWorkspace* workspace, const StoreContext& context)
{
    if (isGone(purpose, workspace))
        return u"This workspace was deleted while you were capturing it. Nothing was saved."_key;
    const auto shortcut = draft.choices.shortcut();
    const auto editedId =
        purpose == CapturePurpose::update ? std::optional(workspace->id()) : std::nullopt;
    if (shortcut && shortcutConflict(*shortcut, editedId, context.workspaces()))
        return shortcutConflictText();
    return {};
}

Message notice(CapturePurpose purpose, const QString& name)
{
    switch (purpose) {
    case CapturePurpose::create:
        return {phrases::captured, name};
    case CapturePurpose::update:
        return {phrases::layoutUpdated, name};
    case CapturePurpose::saveAsNew:
        return {phrases::savedAsNewWorkspace, name};
    }
    Q_UNREACHABLE();
}

/// Everything but the save itself.
Expected<TrovellWorkspace*, WorkspaceCaptureSaveError>
write(CapturePurpose purpose, const CaptureDraft& draft, TrovellWorkspace* workspace,
      StoreContext& context, const ResourceSystem& resources)
{
    if (purpose == CapturePurpose::create)
        return insertWorkspace(draft, nullptr, context, resources);
    if (purpose == CapturePurpose::update) {
        replaceLayout(*workspace, draft.applications, keptPlacementIDs(draft.retainedPlacements),
                      context);
        workspace->setUpdatedAt(QDateTime::currentDateTimeUtc());
        return workspace;
    }
    auto inserted = insertWorkspace(draft, workspace, context, resources);
    if (inserted)
        appendKeptCopies(**inserted, *workspace, draft.retainedPlacements);
    return inserted;
}

} // namespace

Message description(const WorkspaceCaptureSaveError& error)
{
    return {phrases::applicationUnavailable, error.applicationName};
}

Expected<NewItems, WorkspaceCaptureSaveError>
makeLaunchItems(const QList<CapturedApplication>& applications, qint64 firstSortOrder,
                const ResourceSystem& resources)
{
    NewItems items;
    for (const CapturedApplication& application : applications) {
        if (!application.isIncluded || !application.addAsLaunchItem)
            continue;
        const auto url = applicationURL(application, resources);
        if (!url)
            return Unexpected<WorkspaceCaptureSaveError>(
                WorkspaceCaptureSaveError{.applicationName = application.applicationName});
        const qint64 sortOrder = firstSortOrder + static_cast<qint64>(items.size());
        items.push_back(makeLaunchItem(application, *url, sortOrder, resources));
    }
    return items;
}

Expected<NewItems, WorkspaceCaptureSaveError>
itemsForSaveAsNew(const TrovellWorkspace& source, const QList<CapturedApplication>& applications,
                  const ResourceSystem& resources)
{
    NewItems items;
    const auto count = [&items] { return static_cast<qint64>(items.size()); };
    const QSet<QString> detected = detectedBundleIdentifiers(applications);
    for (const WorkspaceItem* item : source.sortedItems()) {
        if (!isDetectedApplication(*item, detected))
            items.push_back(item->duplicate(count()));
    }
    auto launchItems = makeLaunchItems(applications, count(), resources);
    if (!launchItems)
        return launchItems;
    for (auto& launchItem : *launchItems) {
        const bool isThere = std::ranges::any_of(items, [&](const auto& item) {
            return item->bundleIdentifier() == launchItem->bundleIdentifier();
        });
        if (isThere)
            continue;
        launchItem->setSortOrder(count());
        items.push_back(std::move(launchItem));
    }
    return items;
}

void replaceLayout(TrovellWorkspace& workspace, const QList<CapturedApplication>& applications,
                   const QSet<QUuid>& kept, StoreContext& context)
{
    const QSet<QString> detected = detectedBundleIdentifiers(applications);
    for (WindowPlacement* placement : workspace.sortedPlacements()) {
        if (detected.contains(placement->bundleIdentifier()) || !kept.contains(placement->id()))
            context.remove(*placement);
    }
    appendWindows(workspace, applications);
}

Expected<SavedCapture, Message> saveCapture(CapturePurpose purpose, const CaptureDraft& draft,
                                            TrovellWorkspace* workspace, StoreContext& context,
                                            const ResourceSystem& resources)
{
    if (const Message reason = objection(purpose, draft, workspace, context); !reason.isEmpty())
        return Unexpected<Message>(reason);
    const auto written = write(purpose, draft, workspace, context, resources);
    if (!written) {
        context.rollback();
        return Unexpected<Message>(description(written.error()));
    }
    if (const auto saved = saveOrRollBack(context); !saved)
        return Unexpected<Message>(saved.error());
    return SavedCapture{*written, notice(purpose, (*written)->name())};
}

} // namespace trovell
