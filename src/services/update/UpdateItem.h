// SPDX-License-Identifier: MIT
//
// One release as the update feed announces it. Nothing of it is proven until the signature of the
// downloaded package is. A plain value; any thread.
#pragma once

#include "services/update/ReleaseVersion.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace trovell {

struct UpdateItem {
    ReleaseVersion version;
    /// What people call the version.
    QString shortVersion;
    /// Plain text in lines, as the feed holds it: markup in it is not to be interpreted.
    QString notes;
    /// Of any scheme.
    QUrl address;
    qint64 lengthBytes = 0;
    /// The Ed25519 signature of the package in Base64; may be empty or malformed.
    QString signature;
    /// Compared with `UpdateEnvironment::systemVersion`.
    std::optional<ReleaseVersion> minimumSystemVersion;

    bool operator==(const UpdateItem&) const = default;
};

} // namespace trovell
