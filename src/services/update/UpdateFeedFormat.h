// SPDX-License-Identifier: MIT
//
// The names in an update feed, shared by those who read it and those who write it. See
// `parseUpdateFeed`.
#pragma once

#include <QStringView>

namespace trovell::feedformat {

inline constexpr QStringView namespaceUri = u"urn:x-trovell:update-feed";

inline constexpr QStringView root = u"rss";
inline constexpr QStringView channel = u"channel";
inline constexpr QStringView item = u"item";

// Elements of an item, the first three in the namespace.
inline constexpr QStringView version = u"version";
inline constexpr QStringView shortVersion = u"shortVersion";
inline constexpr QStringView minimumSystemVersion = u"minimumSystemVersion";
inline constexpr QStringView description = u"description";
inline constexpr QStringView enclosure = u"enclosure";

// Attributes of the enclosure, the last one in the namespace.
inline constexpr QStringView address = u"url";
inline constexpr QStringView length = u"length";
inline constexpr QStringView signature = u"edSignature";

} // namespace trovell::feedformat
