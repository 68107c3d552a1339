// SPDX-License-Identifier: MIT
//
// What is fixed about the program when it is built: who it is and where its pages are. Any thread.
#pragma once

#include "support/Message.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace trovell {

struct AppConfiguration {
    /// Also the id of the program's desktop file, its name on the session bus and its icon.
    QString bundleIdentifier;
    Message motto;
    // The pages linked from the About page; the root folder where an address does not parse.
    QUrl supportURL;
    QUrl privacyURL;
    QUrl termsURL;
    /// Both are needed for software updates; neither is given unless the build says so.
    std::optional<QUrl> sparkleAppcastURL;
    std::optional<QString> sparklePublicKey;
    /// None when the build does not say.
    std::optional<QString> shortVersion;
    std::optional<QString> buildNumber;
};

/// The one of this program.
[[nodiscard]] const AppConfiguration& appConfiguration();

/// Version and, in brackets, build number, such as "2.3 (45)"; what is not known counts as 1.0
/// and 1.
[[nodiscard]] QString versionText(const AppConfiguration& configuration);

/// The address, or the root folder if it is none.
[[nodiscard]] QUrl pageURL(const QString& text);

} // namespace trovell
