// SPDX-License-Identifier: MIT
//
// What was chosen among captured applications and windows. Plain values; any thread.
#pragma once

#include "windows/CapturedApplication.h"

#include <QSet>

namespace trovell {

/// Of all applications, included or not.
[[nodiscard]] QSet<QString>
detectedBundleIdentifiers(const QList<CapturedApplication>& applications);

/// Included applications that are to become launch items.
[[nodiscard]] QList<CapturedApplication>
launchedApplications(const QList<CapturedApplication>& applications);

/// Included windows of included applications.
[[nodiscard]] QList<CapturedWindow> includedWindows(const QList<CapturedApplication>& applications);

} // namespace trovell
