// SPDX-License-Identifier: MIT
//
// Reads the update feed: RSS 2.0 whose items carry, in the feed's own namespace, what an update
// needs. Pure; any thread.
//
//     <rss version="2.0" xmlns:trovell="urn:x-trovell:update-feed">
//       <channel>
//         <item>
//           <trovell:version>1.4.0</trovell:version>
//           <trovell:shortVersion>1.4</trovell:shortVersion>
//           <trovell:minimumSystemVersion>2.36</trovell:minimumSystemVersion>
//           <description>What is new, in plain text.</description>
//           <enclosure url="https://…/trovell-1.4.deb" length="4194304"
//                      trovell:edSignature="Base64…"/>
//         </item>
//       </channel>
//     </rss>
//
// Short version, minimum system version, description and signature may be left out. Elements and
// attributes of other names are passed over.
#pragma once

#include "services/update/UpdateError.h"
#include "services/update/UpdateItem.h"
#include "support/Expected.h"

#include <QByteArray>
#include <QList>

namespace trovell {

/// What a feed may hold; more is refused with `feedTooLarge` or `feedTooComplex`.
namespace feedlimits {
inline constexpr qsizetype bytes = 1024 * 1024;
inline constexpr qsizetype depth = 8;
inline constexpr qsizetype elements = 10'000;
inline constexpr qsizetype attributesOfAnElement = 16;
inline constexpr qsizetype items = 500;
/// Of a tag, a comment or a text.
inline constexpr qsizetype tokenBytes = 64 * 1024;
} // namespace feedlimits

/// All items in the order of the feed, or the reason why the feed as a whole is refused: one
/// malformed item makes all of it doubtful. Only UTF-8 is read, and a document type declaration
/// is refused before the XML parser sees it, also inside a comment or text.
[[nodiscard]] Expected<QList<UpdateItem>, UpdateError> parseUpdateFeed(const QByteArray& feed);

} // namespace trovell
