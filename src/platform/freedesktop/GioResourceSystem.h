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

    /// False when `url` is no desktop file of an application (Desktop Entry Specification 1.5,
    /// section 6), is hidden, or its TryExec or Exec names no program.
    [[nodiscard]] bool openApplication(const QUrl& url) override;

    /// False when nothing is there, no application opens its kind, or that cannot be started.
    [[nodiscard]] bool openResource(const QUrl& url) override;
};

} // namespace trovell
