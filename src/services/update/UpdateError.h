// SPDX-License-Identifier: MIT
//
// Why a check for updates ended without an update, in words for the user. Any thread.
#pragma once

#include "support/Message.h"

namespace trovell {

enum class UpdateError {
    // The program itself.
    programVersionUnknown,
    publicKeyMalformed,
    // The connection.
    addressNotSecure,
    serverUnreachable,
    serverNotTrusted,
    serverRefused,
    redirectNotSecure,
    tooManyRedirects,
    connectionLost,
    timedOut,
    // The feed.
    feedTooLarge,
    feedNotUtf8,
    feedDeclaresEntities,
    feedTooComplex,
    feedMalformed,
    feedRepeatsVersion,
    // The package.
    signatureMissing,
    signatureMalformed,
    signatureWrong,
    packageTooLarge,
    packageLongerThanAnnounced,
    packageShorterThanAnnounced,
    // The disk.
    folderNotWritable,
    folderNotPrivate,
    diskFull,
    fileNotWritable,
    fileNotReadable,
    // The end.
    installerFailed,
    cancelled,
};

/// One or two sentences.
[[nodiscard]] Message description(UpdateError error);

} // namespace trovell
