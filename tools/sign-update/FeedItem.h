// SPDX-License-Identifier: MIT
//
// The item of the update feed that announces a package.
#pragma once

#include <QString>

namespace trovell {

struct FeedItem {
    QString version;
    QString shortVersion;
    QString minimumSystemVersion;
    /// Plain text.
    QString notes;
    QString address;
    qint64 lengthBytes = 0;
    QString signature;
};

/// The XML, to be pasted into the channel of a feed that binds the prefix "trovell" (see
/// `parseUpdateFeed`). What is empty is left out.
[[nodiscard]] QString feedItemText(const FeedItem& item);

/// The same in a feed of its own.
[[nodiscard]] QString feedText(const FeedItem& item);

} // namespace trovell
