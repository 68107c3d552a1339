// SPDX-License-Identifier: MIT
//
// The Ed25519 signature (RFC 8032, pure) over a whole package. Any thread.
#pragma once

#include "services/update/UpdateError.h"
#include "support/Expected.h"

#include <QString>

#include <array>
#include <optional>

namespace trovell {

using PublicKey = std::array<unsigned char, 32>;
using PackageSignature = std::array<unsigned char, 64>;

/// From Base64. None when `text` is not the one canonical encoding of a point that can be a
/// public key.
[[nodiscard]] std::optional<PublicKey> publicKeyFromText(const QString& text);
/// From Base64. None when `text` is not the one canonical encoding of 64 bytes.
[[nodiscard]] std::optional<PackageSignature> signatureFromText(const QString& text);

/// Fails with `signatureWrong` or `fileNotReadable`. The time grows with the file, about half a
/// second for 200 MB: for worker threads. The memory does not: the file is mapped, and the system
/// may drop its pages again. The file must not be shortened by anyone meanwhile, which would end
/// the program (SIGBUS, mmap(2)); nobody else can in the private folder it lies in.
[[nodiscard]] Expected<void, UpdateError>
verifyPackage(const QString& path, const PackageSignature& signature, const PublicKey& key);

} // namespace trovell
