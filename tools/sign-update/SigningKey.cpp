// SPDX-License-Identifier: MIT

#include "SigningKey.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sodium.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trovell {

namespace {

constexpr mode_t privateMode = 0600;
constexpr mode_t accessOfOthers = S_IRWXG | S_IRWXO;

/// The text of a key file, wiped when it goes: 44 characters of Base64, a line feed and a zero.
struct KeyText {
    std::array<char, 46> characters{};
    ~KeyText() { sodium_memzero(characters.data(), characters.size()); }
};

/// The size of the text.
Expected<std::size_t, SigningError> readPrivateFile(const QString& path, KeyText& text)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return Unexpected<SigningError>(SigningError::keyNotReadable);
    struct stat status{};
    const bool isKnown = ::fstat(file, &status) == 0;
    const ssize_t size = ::read(file, text.characters.data(), text.characters.size());
    ::close(file);
    if (!isKnown || size < 0)
        return Unexpected<SigningError>(SigningError::keyNotReadable);
    if ((status.st_mode & accessOfOthers) != 0)
        return Unexpected<SigningError>(SigningError::keyNotPrivate);
    return static_cast<std::size_t>(size);
}

} // namespace

SigningKey::SigningKey(const Seed& seed)
{
    crypto_sign_seed_keypair(m_publicKey.data(), m_secretKey.data(), seed.data());
}

SigningKey::SigningKey(SigningKey&& other) noexcept
    : m_publicKey(other.m_publicKey), m_secretKey(other.m_secretKey)
{
    sodium_memzero(other.m_secretKey.data(), other.m_secretKey.size());
}

SigningKey::~SigningKey()
{
    sodium_memzero(m_secretKey.data(), m_secretKey.size());
}

Expected<SigningKey, SigningError> SigningKey::create(const QString& path)
{
    if (sodium_init() < 0)
        return Unexpected<SigningError>(SigningError::noRandomness);
    Seed seed{};
    randombytes_buf(seed.data(), seed.size());
    const auto written = write(path, seed);
    SigningKey key(seed);
    sodium_memzero(seed.data(), seed.size());
    if (!written)
        return Unexpected<SigningError>(written.error());
    return key;
}

Expected<void, SigningError> SigningKey::write(const QString& path, const Seed& seed)
{
    KeyText text;
    sodium_bin2base64(text.characters.data(), text.characters.size(), seed.data(), seed.size(),
                      sodium_base64_VARIANT_ORIGINAL);
    const std::size_t size = text.characters.size() - 1;
    text.characters[size - 1] = '\n';
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, privateMode);
    if (file < 0)
        return Unexpected<SigningError>(errno == EEXIST ? SigningError::keyExists
                                                        : SigningError::keyNotWritable);
    const bool isWritten =
        ::write(file, text.characters.data(), size) == static_cast<ssize_t>(size) &&
        ::fsync(file) == 0;
    if (::close(file) == 0 && isWritten)
        return {};
    ::unlink(name.constData());
    return Unexpected<SigningError>(SigningError::keyNotWritable);
}

Expected<SigningKey, SigningError> SigningKey::load(const QString& path)
{
    if (sodium_init() < 0)
        return Unexpected<SigningError>(SigningError::keyNotReadable);
    KeyText text;
    const auto size = readPrivateFile(path, text);
    if (!size)
        return Unexpected<SigningError>(size.error());
    Seed seed{};
    std::size_t seedBytes = 0;
    const bool isSeed =
        sodium_base642bin(seed.data(), seed.size(), text.characters.data(), *size, "\n", &seedBytes,
                          nullptr, sodium_base64_VARIANT_ORIGINAL) == 0 &&
        seedBytes == seed.size();
    SigningKey key(seed);
    sodium_memzero(seed.data(), seed.size());
    if (!isSeed)
        return Unexpected<SigningError>(SigningError::keyMalformed);
    return key;
}

QString SigningKey::publicKey() const
{
    const QByteArray bytes(reinterpret_cast<const char*>(m_publicKey.data()),
                           static_cast<qsizetype>(m_publicKey.size()));
    return QString::fromLatin1(bytes.toBase64());
}

Expected<QString, SigningError> SigningKey::sign(const QString& packagePath) const
{
    QFile file(packagePath);
    if (!file.open(QIODevice::ReadOnly))
        return Unexpected<SigningError>(SigningError::packageNotReadable);
    const uchar* content = file.map(0, file.size());
    if (!content)
        return Unexpected<SigningError>(SigningError::packageNotReadable);
    QByteArray signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(reinterpret_cast<unsigned char*>(signature.data()), nullptr, content,
                         static_cast<unsigned long long>(file.size()), m_secretKey.data());
    return QString::fromLatin1(signature.toBase64());
}

} // namespace trovell
