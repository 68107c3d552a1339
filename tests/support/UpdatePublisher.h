// SPDX-License-Identifier: MIT
//
// The publisher's side of updates: keys, signatures and feeds. Main thread of a test.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>
#include <span>

#include <sodium.h>

namespace trovell::test {

using namespace Qt::StringLiterals;

/// An item of a feed as it is to be written, right or wrong; what is empty is left out.
struct PublishedItem {
    QString version = u"2.0"_s;
    QString address = u"https://updates.example/trovell-2.0.deb"_s;
    QString length = u"4096"_s;
    QString signature = QString(86, u'A') + u"=="_s;
    QString shortVersion = {};
    QString notes = {};
    QString minimumSystemVersion = {};
    /// Further XML.
    QString extra = {};
};

inline QString element(const QString& name, const QString& text)
{
    return text.isEmpty() ? QString() : u"<%1>%2</%1>"_s.arg(name, text.toHtmlEscaped());
}

inline QString attribute(const QString& name, const QString& text)
{
    return text.isEmpty() ? QString() : u" %1=\"%2\""_s.arg(name, text.toHtmlEscaped());
}

inline QString itemText(const PublishedItem& item)
{
    return u"<item><title>Trovell</title>"_s + element(u"trovell:version"_s, item.version) +
           element(u"trovell:shortVersion"_s, item.shortVersion) +
           element(u"trovell:minimumSystemVersion"_s, item.minimumSystemVersion) +
           element(u"description"_s, item.notes) + u"<enclosure"_s +
           attribute(u"url"_s, item.address) + attribute(u"length"_s, item.length) +
           attribute(u"trovell:edSignature"_s, item.signature) + u"/>"_s + item.extra +
           u"</item>\n"_s;
}

[[nodiscard]] inline QByteArray feedOf(const QList<PublishedItem>& items)
{
    QString text =
        u"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        u"<rss version=\"2.0\" xmlns:trovell=\"urn:x-trovell:update-feed\"><channel>\n"_s;
    for (const PublishedItem& item : items)
        text += itemText(item);
    return (text + u"</channel></rss>\n"_s).toUtf8();
}

class UpdatePublisher {
public:
    /// With a new pair of keys.
    UpdatePublisher()
    {
        if (sodium_init() < 0 || crypto_sign_keypair(m_publicKey.data(), m_secretKey.data()) != 0)
            qFatal("The publisher has no keys.");
    }

    /// In Base64.
    [[nodiscard]] QString publicKey() const { return base64(m_publicKey); }
    [[nodiscard]] QString signature(const QByteArray& package) const
    {
        std::array<unsigned char, crypto_sign_BYTES> signature;
        crypto_sign_detached(signature.data(), nullptr,
                             reinterpret_cast<const unsigned char*>(package.constData()),
                             static_cast<unsigned long long>(package.size()), m_secretKey.data());
        return base64(signature);
    }

private:
    static QString base64(std::span<const unsigned char> bytes)
    {
        const QByteArrayView view(bytes.data(), bytes.size());
        return QString::fromLatin1(view.toByteArray().toBase64());
    }

    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> m_publicKey{};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> m_secretKey{};
};

} // namespace trovell::test
