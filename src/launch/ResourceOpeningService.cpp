// SPDX-License-Identifier: MIT

#include "launch/ResourceOpeningService.h"

#include "launch/URLValidation.h"
#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceItem.h"
#include "support/DetachedTask.h"

#include <qcoro/qcorofuture.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace trovell {

namespace {

LaunchResult failure(const QString& name, const ResourceOpeningError& error)
{
    const LaunchResultKind kind = error.kind == ResourceOpeningError::Kind::missing
                                      ? LaunchResultKind::skippedMissingResource
                                      : LaunchResultKind::failed;
    return makeLaunchResult(Message::verbatim(name), kind, description(error));
}

Expected<ResolvedResource, ResourceOpeningError>
resolve(const ResourceSystem& system, const ResourceOpeningService::Exists& exists,
        const std::optional<QByteArray>& bookmarkData, const QString& urlString)
{
    if (bookmarkData) {
        const auto resolved = system.resolveBookmark(*bookmarkData);
        if (resolved && !resolved->isStale)
            return ResolvedResource{resolved->url, {}};
        // A bookmark that cannot be made anew is not trusted any more.
        if (const auto refreshed = resolved ? system.createBookmark(resolved->url) : std::nullopt)
            return ResolvedResource{resolved->url, refreshed};
    }
    const QUrl url(urlString);
    if (!url.isValid() || (url.isLocalFile() && !exists(url)))
        return Unexpected(ResourceOpeningError{ResourceOpeningError::Kind::missing, urlString});
    return ResolvedResource{url, {}};
}

bool hasSavedWindows(const WorkspaceItem& item)
{
    const TrovellWorkspace* workspace = item.workspace();
    return workspace &&
           std::ranges::any_of(workspace->sortedPlacements(), [&](const WindowPlacement* each) {
               return each->isEnabled() && each->bundleIdentifier() == item.bundleIdentifier();
           });
}

} // namespace

bool resourceExists(const QUrl& fileURL)
{
    // Not by way of QString: file names are bytes and need not be UTF-8.
    const QByteArray path =
        QByteArray::fromPercentEncoding(fileURL.path(QUrl::FullyEncoded).toLatin1());
    std::error_code error;
    return !path.contains('\0') && std::filesystem::exists(path.toStdString(), error);
}

ResourceOpeningService::ResourceOpeningService(std::shared_ptr<ResourceSystem> system,
                                               IsRunning isRunning, Exists exists)
    : m_system(std::move(system)), m_isRunning(std::move(isRunning)), m_exists(std::move(exists))
{
}

QCoro::Task<LaunchResult> ResourceOpeningService::open(WorkspaceItem& item, QFuture<void> givenUp)
{
    const QString type = item.typeRawValue();
    const WorkspaceItemValues& values = item.values();
    Request request{values.displayName,
                    values.urlString,
                    values.bookmarkData,
                    values.bundleIdentifier,
                    type == u"application",
                    hasSavedWindows(item),
                    {values.arguments, values.workingFolder},
                    values.openWith.value_or(QString()),
                    std::move(givenUp)};
    if (type == u"webLink")
        return openWebLink(std::move(request));
    return openResource(std::move(request), QPointer(&item));
}

QCoro::Task<LaunchResult> ResourceOpeningService::openWebLink(Request request)
{
    const auto url = validatedWebURL(request.urlString);
    if (!url)
        co_return makeLaunchResult(Message::verbatim(request.name), LaunchResultKind::failed,
                                   description(url.error()));
    co_return co_await openURL(request, *url);
}

QCoro::Task<LaunchResult> ResourceOpeningService::openResource(Request request,
                                                               QPointer<WorkspaceItem> item)
{
    // Named before it is awaited: GCC 12 destroys temporaries of a co_await expression twice.
    auto search = runDetached([request, system = m_system, exists = m_exists] {
        return resolve(*system, exists, request.bookmarkData, request.urlString);
    });
    const auto resource = co_await search;
    if (!resource)
        co_return failure(request.name, resource.error());
    if (resource->refreshedBookmark && item)
        item->setBookmarkData(resource->refreshedBookmark);
    co_return co_await openURL(request, resource->url);
}

QCoro::Task<LaunchResult> ResourceOpeningService::openURL(Request request, QUrl url)
{
    if (request.isApplication && request.bundleIdentifier) {
        auto asking = m_isRunning(*request.bundleIdentifier, request.needsWindow);
        if (co_await asking)
            co_return makeLaunchResult(Message::verbatim(request.name),
                                       LaunchResultKind::alreadyRunning);
    }

    if (request.givenUp.isFinished())
        co_return makeLaunchResult(Message::verbatim(request.name), LaunchResultKind::failed);
    const bool isAccepted = request.isApplication ? m_system->openApplication(url, request.start)
                                                  : m_system->openResource(url, request.openWith);
    if (!isAccepted)
        co_return failure(request.name, {ResourceOpeningError::Kind::cannotOpen, request.name});
    co_return makeLaunchResult(Message::verbatim(request.name), request.isApplication
                                                                    ? LaunchResultKind::launched
                                                                    : LaunchResultKind::opened);
}

Expected<ResolvedResource, ResourceOpeningError>
ResourceOpeningService::resolveFileURL(const std::optional<QByteArray>& bookmarkData,
                                       const QString& urlString) const
{
    return resolve(*m_system, m_exists, bookmarkData, urlString);
}

} // namespace trovell
