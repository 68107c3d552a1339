// SPDX-License-Identifier: MIT
//
// Opens one launch item of a workspace and tells the outcome as a line of the launch report.
// Main thread, unless said otherwise.
#pragma once

#include "launch/ResourceOpeningError.h"
#include "launch/ResourceSystem.h"
#include "results/LaunchResult.h"
#include "support/Expected.h"

#include <QByteArray>
#include <QFuture>
#include <QPointer>
#include <QString>
#include <QUrl>

#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <optional>

namespace trovell {

class WorkspaceItem;

/// Where an item's resource is now.
struct ResolvedResource {
    QUrl url;
    /// Replaces the item's bookmark, which was stale.
    std::optional<QByteArray> refreshedBookmark;
};

/// Whether a file or folder exists at a file URL; symbolic links are followed. Any thread.
[[nodiscard]] bool resourceExists(const QUrl& fileURL);

class ResourceOpeningService {
public:
    /// Whether an application runs, and, if that is needed, has a window.
    using IsRunning =
        std::function<QFuture<bool>(const QString& bundleIdentifier, bool needsWindow)>;
    using Exists = std::function<bool(const QUrl& fileURL)>;

    /// A search that does not end keeps `system`. `isRunning` is called on the main thread,
    /// `exists` on other threads.
    ResourceOpeningService(std::shared_ptr<ResourceSystem> system, IsRunning isRunning,
                           Exists exists = resourceExists);

    /// Opens the item, unless it is an application that runs already. One that has no window, but
    /// saved ones in the item's workspace, is started once more, which makes it show itself. The
    /// only change to the record is a refreshed bookmark; the record may be deleted while its
    /// resource is searched, and is opened all the same. Every failure is a result line. Nothing is
    /// opened any more once `givenUp` has finished.
    [[nodiscard]] QCoro::Task<LaunchResult> open(WorkspaceItem& item, QFuture<void> givenUp);

    /// Follows the bookmark, or, where that leads nowhere, the URL text. A URL that names no file
    /// is returned unchecked. Blocks while it searches; any thread.
    [[nodiscard]] Expected<ResolvedResource, ResourceOpeningError>
    resolveFileURL(const std::optional<QByteArray>& bookmarkData, const QString& urlString) const;

    /// Makes a running application open one more window; false when it has no way to.
    [[nodiscard]] bool openNewWindow(const QString& bundleIdentifier)
    {
        return m_system->openNewWindow(bundleIdentifier);
    }

private:
    /// What opening needs of a record.
    struct Request {
        QString name;
        QString urlString;
        std::optional<QByteArray> bookmarkData;
        std::optional<QString> bundleIdentifier;
        bool isApplication = false;
        /// The workspace saved windows of it.
        bool needsWindow = false;
        ApplicationStart start;
        QString openWith;
        QFuture<void> givenUp;
    };

    QCoro::Task<LaunchResult> openResource(Request request, QPointer<WorkspaceItem> item);
    QCoro::Task<LaunchResult> openWebLink(Request request);
    QCoro::Task<LaunchResult> openURL(Request request, QUrl url);

    std::shared_ptr<ResourceSystem> m_system;
    IsRunning m_isRunning;
    Exists m_exists;
};

} // namespace trovell
