// SPDX-License-Identifier: MIT
//
// What was chosen among captured applications and windows. Plain values; any thread.
#pragma once

#include "windows/CapturedApplication.h"

#include <QSet>
#include <QUrl>

namespace trovell {

class ResourceSystem;

/// Of all applications, included or not.
[[nodiscard]] QSet<QString>
detectedBundleIdentifiers(const QList<CapturedApplication>& applications);

/// Included applications that are to become launch items.
[[nodiscard]] QList<CapturedApplication>
launchedApplications(const QList<CapturedApplication>& applications);

/// Included windows of included applications.
[[nodiscard]] QList<CapturedWindow> includedWindows(const QList<CapturedApplication>& applications);

/// Where the application is now; none when it is gone.
[[nodiscard]] std::optional<QUrl> applicationURL(const CapturedApplication& application,
                                                 const ResourceSystem& resources);

} // namespace trovell
