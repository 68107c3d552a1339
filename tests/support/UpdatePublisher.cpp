#include "support/UpdatePublisher.h"

#include <sodium.h>

#include <span>

namespace trovell::test {

namespace {

QString base64(std::span<const unsigned char> bytes)
{
    return QString::fromLatin1(QByteArrayView(bytes.data(), bytes.size()).toByteArray().toBase64());
}

QString element(const QString& name, const QString& text)
{
    return text.isEmpty() ? QString() : u"<%1>%2</%1>"_qs.arg(name, text.toHtmlEscaped());
}

QString attribute(const QString& name, const QString& text)
{
    return text.isEmpty() ? QString() : u" %1=\"%2\""_qs.arg(name, text.toHtmlEscaped());
}

QString itemText(const PublishedItem& item)
{
    return u"<item><title>Trovell</title>"_qs + element(u"trovell:version"_qs, item.version) +
           element(u"trovell:shortVersion"_qs, item.shortVersion) +
           element(u"trovell:minimumSystemVersion"_qs, item.minimumSystemVersion) +
           element(u"description"_qs, item.notes) + u"<enclosure"_qs +
           attribute(u"url"_qs, item.address) + attribute(u"length"_qs, item.length) +
           attribute(u"trovell:edSignature"_qs, item.signature) + u"/>"_qs + item.extra +
           u"</item>\n"_qs;
}

} // namespace

QByteArray feedOf(const QList<PublishedItem>& items)
{
    QString text =
        u"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        u"<rss version=\"2.0\" xmlns:trovell=\"urn:x-trovell:update-feed\"><channel>\n"_qs;
    for (const PublishedItem& item : items)
        text += itemText(item);
    return (text + u"</channel></rss>\n"_qs).toUtf8();
}

UpdatePublisher::UpdatePublisher()
{
    if (sodium_init() < 0 || crypto_sign_keypair(m_publicKey.data(), m_secretKey.data()) != 0)
        qFatal("The publisher has no keys.");
}

QString UpdatePublisher::publicKey() const
{
    return base64(m_publicKey);
}

QString UpdatePublisher::signature(const QByteArray& package) const
{
    std::array<unsigned char, crypto_sign_BYTES> signature;
    crypto_sign_detached(signature.data(), nullptr,
                         reinterpret_cast<const unsigned char*>(package.constData()),
                         static_cast<unsigned long long>(package.size()), m_secretKey.data());
    return base64(signature);
}

} // namespace trovell::test
