// SPDX-License-Identifier: MIT

#include "FeedItem.h"

#include "services/update/UpdateFeedFormat.h"

#include <QXmlStreamWriter>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

QString ours(QStringView name)
{
    return u"trovell:"_s + name.toString();
}

void writeElement(QXmlStreamWriter& writer, const QString& name, const QString& text)
{
    if (!text.isEmpty())
        writer.writeTextElement(name, text);
}

} // namespace

QString feedItemText(const FeedItem& item)
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.writeStartElement(feedformat::item.toString());
    writeElement(writer, ours(feedformat::version), item.version);
    writeElement(writer, ours(feedformat::shortVersion), item.shortVersion);
    writeElement(writer, ours(feedformat::minimumSystemVersion), item.minimumSystemVersion);
    writeElement(writer, feedformat::description.toString(), item.notes);
    writer.writeEmptyElement(feedformat::enclosure.toString());
    writer.writeAttribute(feedformat::address.toString(), item.address);
    writer.writeAttribute(feedformat::length.toString(), QString::number(item.lengthBytes));
    writer.writeAttribute(ours(feedformat::signature), item.signature);
    writer.writeEndElement();
    return text.trimmed() + u'\n';
}

QString feedText(const FeedItem& item)
{
    return u"<rss version=\"2.0\" xmlns:trovell=\"%1\">\n<channel>\n%2</channel>\n</rss>\n"_s.arg(
        feedformat::namespaceUri, feedItemText(item));
}

} // namespace trovell
