// SPDX-License-Identifier: MIT
//
// What the updater needs to know of the program and the machine around it. A plain value.
#pragma once

#include <QSslConfiguration>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace trovell {

struct UpdateEnvironment {
    /// Compared with the versions in the feed.
    QString programVersion;
    /// Compared with the minimum system versions in the feed.
    QString systemVersion;
    /// Belongs to the updater, which deletes files in it, and so does the folder that holds it.
    QString downloadFolder;
    /// Opens the package at an absolute path for installation. False when nothing could be opened.
    /// Called on the main thread; does not wait for the installation.
    std::function<bool(const QString& path)> openInstaller;
    /// Holds the authorities that are trusted. None where nothing is fetched: making one loads a
    /// library that is worth a tenth of the program's start.
    std::optional<QSslConfiguration> tls;

    // Limits. The feed is one small file; how long a package takes depends on the line.
    std::chrono::milliseconds silenceTimeout = std::chrono::seconds(30);
    std::chrono::milliseconds feedTimeout = std::chrono::seconds(60);
    qint64 maximumPackageBytes = qint64(1024) * 1024 * 1024;
};

/// For this machine: the version of its C library, which is what decides on every distribution
/// whether a program built elsewhere starts; `$XDG_CACHE_HOME/trovell/update`; the desktop's own
/// authorities.
[[nodiscard]] UpdateEnvironment
standardUpdateEnvironment(const QString& programVersion,
                          std::function<bool(const QString& path)> openInstaller);

} // namespace trovell
