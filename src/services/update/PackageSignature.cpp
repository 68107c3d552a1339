// SPDX-License-Identifier: MIT

#include "services/update/PackageSignature.h"

#include <QFile>

#include <algorithm>
#include <sodium.h>

namespace trovell {

namespace {

template <std::size_t size>
std::optional<std::array<unsigned char, size>> bytesFromText(const QString& text)
{
    const QByteArray encoded = text.toLatin1();
    const auto decoded =
        QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    // Unused bits of the last character could otherwise be anything.
    if (!decoded || decoded.decoded.size() != size || decoded.decoded.toBase64() != encoded)
        return std::nullopt;
    std::array<unsigned char, size> bytes{};
    std::copy(decoded.decoded.begin(), decoded.decoded.end(), bytes.begin());
    return bytes;
}

} // namespace

std::optional<PublicKey> publicKeyFromText(const QString& text)
{
    const auto key = bytesFromText<std::tuple_size_v<PublicKey>>(text);
    if (sodium_init() < 0 || !key || crypto_core_ed25519_is_valid_point(key->data()) != 1)
        return std::nullopt;
    return key;
}

std::optional<PackageSignature> signatureFromText(const QString& text)
{
    return bytesFromText<std::tuple_size_v<PackageSignature>>(text);
}

Expected<void, UpdateError> verifyPackage(const QString& path, const PackageSignature& signature,
                                          const PublicKey& key)
{
    QFile file(path);
    if (sodium_init() < 0 || !file.open(QIODevice::ReadOnly))
        return Unexpected<UpdateError>(UpdateError::fileNotReadable);
    const uchar* content = file.map(0, file.size());
    if (!content)
        return Unexpected<UpdateError>(UpdateError::fileNotReadable);
    const auto size = static_cast<unsigned long long>(file.size());
    if (crypto_sign_verify_detached(signature.data(), content, size, key.data()) != 0)
        return Unexpected<UpdateError>(UpdateError::signatureWrong);
    return {};
}

} // namespace trovell
