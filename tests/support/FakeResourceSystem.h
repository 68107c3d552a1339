// SPDX-License-Identifier: MIT
//
// A desktop that opens nothing and remembers what it was asked to open. Set it up before the code
// under test runs; workers only read it.
#pragma once

#include "launch/ResourceSystem.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <functional>
#include <memory>

namespace trovell {

class FakeResourceSystem final : public ResourceSystem {
public:
    /// The bytes resolve to `url`. Bookmarks made by this system need no such call.
    void addBookmark(const QByteArray& bookmark, const QUrl& url, bool isStale = false)
    {
        m_bookmarks.insert(bookmark, {url, isStale});
    }
    void addApplication(const QString& bundleIdentifier, const QUrl& url)
    {
        m_applications.insert(bundleIdentifier, url);
    }
    /// One that its desktop file describes so.
    void addApplication(const ApplicationDescription& description, const QUrl& url);
    void refuseToBookmark(const QUrl& url) { m_unmarkable.insert(url); }
    void refuseToOpen(const QUrl& url) { m_refused.insert(url); }

    /// Called before anything is opened.
    std::function<void()> onOpen = [] {};
    /// Opens the window, or returns that there is no way to.
    std::function<bool(const QString&)> onNewWindow = [](const QString&) { return false; };
    /// As last asked for.
    ApplicationStart lastStart;
    QString lastOpenWith;

    [[nodiscard]] QList<QUrl> openedApplications() const { return m_openedApplications; }
    [[nodiscard]] QList<QUrl> openedResources() const { return m_openedResources; }
    /// Both kinds, in the order of the calls; refused ones are left out.
    [[nodiscard]] QList<QUrl> opened() const { return m_opened; }

    [[nodiscard]] std::optional<QByteArray> createBookmark(const QUrl& url) const override;
    [[nodiscard]] std::optional<ResolvedBookmark>
    resolveBookmark(const QByteArray& bookmark) const override;
    [[nodiscard]] std::optional<QUrl>
    applicationURL(const QString& bundleIdentifier) const override;
    /// As it was added; else describes any URL of a file whose name ends in ".desktop".
    [[nodiscard]] std::optional<ApplicationDescription>
    describeApplication(const QUrl& url) const override;
    /// Those that were added, as `describeApplication` describes them.
    [[nodiscard]] QList<InstalledApplication> installedApplications() const override;
    [[nodiscard]] bool openApplication(const QUrl& url, const ApplicationStart& start = {}) override
    {
        lastStart = start;
        return open(url, m_openedApplications);
    }
    [[nodiscard]] bool openResource(const QUrl& url, const QString& openWith = {}) override
    {
        lastOpenWith = openWith;
        return open(url, m_openedResources);
    }
    [[nodiscard]] bool openNewWindow(const QString& bundleIdentifier) override
    {
        return onNewWindow(bundleIdentifier);
    }

private:
    bool open(const QUrl& url, QList<QUrl>& kind);

    QHash<QByteArray, ResolvedBookmark> m_bookmarks;
    QHash<QString, QUrl> m_applications;
    QHash<QUrl, ApplicationDescription> m_descriptions;
    QSet<QUrl> m_unmarkable;
    QSet<QUrl> m_refused;
    QList<QUrl> m_openedApplications;
    QList<QUrl> m_openedResources;
    QList<QUrl> m_opened;
};

/// For those that would keep the system; it outlives them.
[[nodiscard]] inline std::shared_ptr<ResourceSystem> borrowed(ResourceSystem& system)
{
    return {std::shared_ptr<void>(), &system};
}

} // namespace trovell
