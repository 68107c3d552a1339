// SPDX-License-Identifier: MIT
//
// Opens and finds things with GIO: desktop files, default applications of the shared MIME database
// and bookmarks of its own.
#pragma once

#include "launch/ResourceSystem.h"

namespace trovell {

/// What it starts runs in a session of its own with no output, is nobody's zombie and, if its
/// desktop file says so, is started by the bus. The bus is asked without waiting for the answer,
/// so an application whose service is broken counts as accepted.
class GioResourceSystem final : public ResourceSystem {
public:
    [[nodiscard]] std::optional<QByteArray> createBookmark(const QUrl& url) const override;
    [[nodiscard]] std::optional<ResolvedBookmark>
    resolveBookmark(const QByteArray& bookmark) const override;

    /// None also for one whose desktop file is hidden or whose program is not installed.
    [[nodiscard]] std::optional<QUrl>
    applicationURL(const QString& bundleIdentifier) const override;

    [[nodiscard]] std::optional<ApplicationDescription>
    describeApplication(const QUrl& url) const override;

    [[nodiscard]] QList<InstalledApplication> installedApplications() const override;

    /// False when `url` is neither a program nor a desktop file of an application (Desktop Entry
    /// Specification 1.5, section 6), or one that is hidden or whose TryExec or Exec names no
    /// program.
    [[nodiscard]] bool openApplication(const QUrl& url,
                                       const ApplicationStart& start = {}) override;

    /// False when nothing is there, no application opens its kind, or that cannot be started.
    [[nodiscard]] bool openResource(const QUrl& url, const QString& openWith = {}) override;

    /// By the desktop file's action for that; without one by starting the application again, unless
    /// it says that it has one window only.
    [[nodiscard]] bool openNewWindow(const QString& bundleIdentifier) override;
};

} // namespace trovell
