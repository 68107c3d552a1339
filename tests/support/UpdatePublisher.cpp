#include "support/UpdatePublisher.h"

#include <sodium.h>

namespace trovell::test {

namespace {

unsigned char* bytes(QByteArray& array)
{
    return reinterpret_cast<unsigned char*>(array.data());
}

const unsigned char* bytes(const QByteArray& array)
{
    return reinterpret_cast<const unsigned char*>(array.constData());
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
    : m_publicKey(crypto_sign_PUBLICKEYBYTES, '\0'), m_secretKey(crypto_sign_SECRETKEYBYTES, '\0')
{
    if (sodium_init() < 0 || crypto_sign_keypair(bytes(m_publicKey), bytes(m_secretKey)) != 0)
        qFatal("The publisher has no keys.");
}

QString UpdatePublisher::publicKey() const
{
    return QString::fromLatin1(m_publicKey.toBase64());
}

QString UpdatePublisher::signature(const QByteArray& package) const
{
    QByteArray signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(bytes(signature), nullptr, bytes(package),
                         static_cast<unsigned long long>(package.size()), bytes(m_secretKey));
    return QString::fromLatin1(signature.toBase64());
}

PublishedItem UpdatePublisher::item(const QByteArray& package, const QUrl& address) const
{
    PublishedItem item;
    item.address = address.toString();
    item.length = QString::number(package.size());
    item.signature = signature(package);
    return item;
}

} // namespace trovell::test
