// SPDX-License-Identifier: MIT
//
// Why a package was not signed, in words for the publisher.
#pragma once

#include <QString>

namespace trovell {

enum class SigningError {
    keyExists,
    keyNotWritable,
    keyNotReadable,
    keyNotPrivate,
    keyMalformed,
    packageNotReadable,
    noRandomness,
};

[[nodiscard]] QString description(SigningError error);

} // namespace trovell
