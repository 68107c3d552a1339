// SPDX-License-Identifier: MIT
//
// The private key that packages are signed with. In its file it is the 32 bytes of RFC 8032 in
// Base64; in memory it is wiped when it goes.
#pragma once

#include "SigningError.h"
#include "support/Expected.h"

#include <QString>

#include <array>

namespace trovell {

class SigningKey {
public:
    /// Makes a new key and the file `path` with mode 0600. Never replaces a file.
    [[nodiscard]] static Expected<SigningKey, SigningError> create(const QString& path);
    /// Refuses a file that others can read.
    [[nodiscard]] static Expected<SigningKey, SigningError> load(const QString& path);

    ~SigningKey();
    SigningKey(SigningKey&& other) noexcept;
    SigningKey& operator=(SigningKey&&) = delete;

    /// In Base64.
    [[nodiscard]] QString publicKey() const;
    /// Over the whole file, in Base64.
    [[nodiscard]] Expected<QString, SigningError> sign(const QString& packagePath) const;

private:
    static constexpr std::size_t seedSize = 32;
    using Seed = std::array<unsigned char, seedSize>;

    explicit SigningKey(const Seed& seed);
    static Expected<void, SigningError> write(const QString& path, const Seed& seed);

    std::array<unsigned char, 32> m_publicKey{};
    std::array<unsigned char, 64> m_secretKey{};
};

} // namespace trovell
