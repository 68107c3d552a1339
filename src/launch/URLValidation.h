// SPDX-License-Identifier: MIT
//
// Turns what the user typed as a web link into an absolute http or https address. Pure; any thread.
#pragma once

#include "support/Expected.h"
#include "support/Message.h"

#include <QString>
#include <QUrl>

namespace trovell {

enum class URLValidationError {
    empty,             ///< nothing but white space
    invalid,           ///< no acceptable address
    unsupportedScheme, ///< a scheme other than http or https is spelt out with "://"
};

[[nodiscard]] Message description(URLValidationError error);

/// Trims `text`, puts "https://" in front unless it contains "://", and parses it as RFC 3986 says.
/// Characters that RFC 3986 wants percent-encoded in the user information, path, query and fragment
/// are encoded and international host names are accepted, since people type and paste both. A host
/// without a dot is refused.
[[nodiscard]] Expected<QUrl, URLValidationError> validatedWebURL(const QString& text);

} // namespace trovell
