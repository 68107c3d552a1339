// SPDX-License-Identifier: MIT

#include "services/update/UpdateFeedParser.h"

#include "services/update/UpdateFeedFormat.h"

#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

// Fields of an item by name; names in our namespace have a prefix of our own.
using Fields = QHash<QString, QString>;

constexpr qsizetype feedChunkBytes = 4 * 1024;
constexpr qsizetype itemDepth = 3;
constexpr qsizetype fieldDepth = itemDepth + 1;
constexpr qsizetype maximumShortVersionLength = 100;

QString ours(QStringView name)
{
    return u"trovell:"_s + name.toString();
}

/// Empty for a name that is neither ours nor of plain RSS.
QString fieldName(QStringView namespaceUri, QStringView name)
{
    if (namespaceUri == feedformat::namespaceUri)
        return ours(name);
    return namespaceUri.isEmpty() ? name.toString() : QString();
}

bool isTextField(const QString& name)
{
    return name == feedformat::description || name == ours(feedformat::version) ||
           name == ours(feedformat::shortVersion) || name == ours(feedformat::minimumSystemVersion);
}

bool isEnclosureField(const QString& name)
{
    return name == feedformat::address || name == feedformat::length ||
           name == ours(feedformat::signature);
}

/// None when `text` is not a positive whole number in plain digits.
std::optional<qint64> byteCount(const QString& text)
{
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    bool isNumber = false;
    const qint64 count = text.toLongLong(&isNumber);
    if (!isNumber || count <= 0 || !std::all_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    return count;
}

std::optional<QString> shortVersionText(const Fields& fields)
{
    const auto isControl = [](QChar character) {
        return character.category() == QChar::Other_Control;
    };
    const QString text =
        fields.value(ours(feedformat::shortVersion), fields.value(ours(feedformat::version)))
            .trimmed();
    if (text.isEmpty() || text.size() > maximumShortVersionLength ||
        std::any_of(text.begin(), text.end(), isControl))
        return std::nullopt;
    return text;
}

std::optional<UpdateItem> itemFromFields(const Fields& fields)
{
    const QString minimum = fields.value(ours(feedformat::minimumSystemVersion)).trimmed();
    const auto version = ReleaseVersion::parse(fields.value(ours(feedformat::version)).trimmed());
    const auto shortVersion = shortVersionText(fields);
    const auto length = byteCount(fields.value(feedformat::length.toString()));
    const QUrl address(fields.value(feedformat::address.toString()), QUrl::StrictMode);
    const auto minimumSystemVersion = ReleaseVersion::parse(minimum);
    if (!version || !shortVersion || !length || !address.isValid() ||
        (!minimum.isEmpty() && !minimumSystemVersion))
        return std::nullopt;
    return UpdateItem{.version = *version,
                      .shortVersion = *shortVersion,
                      .notes = fields.value(feedformat::description.toString()).trimmed(),
                      .address = address,
                      .lengthBytes = *length,
                      .signature = fields.value(ours(feedformat::signature)).trimmed(),
                      .minimumSystemVersion = minimumSystemVersion};
}

class FeedReader {
public:
    Expected<QList<UpdateItem>, UpdateError> read(const QByteArray& feed);

private:
    void refuse(UpdateError error);
    void readTokens();
    void readToken();
    void startElement();
    void startField();
    void addText();
    void endElement();
    void addField(const QString& name, const QString& value);
    void addItem();

    [[nodiscard]] bool isInItem() const;

    QXmlStreamReader m_xml;
    std::optional<UpdateError> m_error;
    QStringList m_path;
    QString m_text;
    Fields m_fields;
    QList<UpdateItem> m_items;
    qsizetype m_elementCount = 0;
    /// Since the last complete token.
    qsizetype m_pendingBytes = 0;
};

Expected<QList<UpdateItem>, UpdateError> FeedReader::read(const QByteArray& feed)
{
    // In pieces, because the XML parser compares each attribute of a tag with every other one: a
    // single tag of a megabyte keeps it busy for half a minute before its attributes can be
    // counted.
    for (qsizetype start = 0; start < feed.size() && !m_error; start += feedChunkBytes) {
        const QByteArray chunk = feed.mid(start, feedChunkBytes);
        m_xml.addData(chunk);
        m_pendingBytes += chunk.size();
        readTokens();
        if (m_pendingBytes > feedlimits::tokenBytes)
            refuse(UpdateError::feedTooComplex);
    }
    if (m_xml.tokenType() != QXmlStreamReader::EndDocument)
        refuse(UpdateError::feedMalformed);
    if (m_error)
        return Unexpected<UpdateError>(*m_error);
    return m_items;
}

/// The first reason counts.
void FeedReader::refuse(UpdateError error)
{
    if (!m_error)
        m_error = error;
}

void FeedReader::readTokens()
{
    while (!m_error && m_xml.readNext() != QXmlStreamReader::Invalid) {
        m_pendingBytes = 0;
        readToken();
        if (m_xml.atEnd())
            break;
    }
    if (m_xml.hasError() && m_xml.error() != QXmlStreamReader::PrematureEndOfDocumentError)
        refuse(UpdateError::feedMalformed);
}

void FeedReader::readToken()
{
    switch (m_xml.tokenType()) {
    case QXmlStreamReader::StartDocument:
        if (const QStringView encoding = m_xml.documentEncoding();
            !encoding.isEmpty() && encoding.compare(u"utf-8", Qt::CaseInsensitive) != 0)
            refuse(UpdateError::feedNotUtf8);
        break;
    case QXmlStreamReader::DTD:
    case QXmlStreamReader::EntityReference:
        refuse(UpdateError::feedDeclaresEntities);
        break;
    case QXmlStreamReader::StartElement:
        startElement();
        break;
    case QXmlStreamReader::Characters:
        addText();
        break;
    case QXmlStreamReader::EndElement:
        endElement();
        break;
    default:
        break;
    }
}

bool FeedReader::isInItem() const
{
    return m_path.size() >= itemDepth && m_path[1] == feedformat::channel &&
           m_path[2] == feedformat::item;
}

void FeedReader::startElement()
{
    const auto attributeCount = m_xml.attributes().size() + m_xml.namespaceDeclarations().size();
    m_path.append(fieldName(m_xml.namespaceUri(), m_xml.name()));
    if (++m_elementCount > feedlimits::elements || m_path.size() > feedlimits::depth ||
        attributeCount > feedlimits::attributesOfAnElement)
        return refuse(UpdateError::feedTooComplex);
    if (m_path[0] != feedformat::root)
        return refuse(UpdateError::feedMalformed);
    if (!isInItem())
        return;
    if (m_path.size() == itemDepth)
        m_fields.clear();
    else if (m_path.size() == fieldDepth)
        startField();
    else if (isTextField(m_path[itemDepth]))
        refuse(UpdateError::feedMalformed);
}

void FeedReader::startField()
{
    m_text.clear();
    if (m_path.constLast() != feedformat::enclosure)
        return;
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = fieldName(attribute.namespaceUri(), attribute.name());
        if (isEnclosureField(name))
            addField(name, attribute.value().toString());
    }
}

void FeedReader::addText()
{
    if (m_path.size() != fieldDepth || !isInItem())
        return;
    m_text += m_xml.text();
    if (m_text.size() > feedlimits::tokenBytes)
        refuse(UpdateError::feedTooComplex);
}

void FeedReader::endElement()
{
    if (isInItem() && m_path.size() == itemDepth)
        addItem();
    else if (isInItem() && m_path.size() == fieldDepth && isTextField(m_path.constLast()))
        addField(m_path.constLast(), m_text);
    m_path.removeLast();
}

void FeedReader::addField(const QString& name, const QString& value)
{
    if (m_fields.contains(name))
        return refuse(UpdateError::feedMalformed);
    m_fields.insert(name, value);
}

void FeedReader::addItem()
{
    const std::optional<UpdateItem> item = itemFromFields(m_fields);
    if (!item)
        return refuse(UpdateError::feedMalformed);
    const auto isSameVersion = [&item](const UpdateItem& other) {
        return other.version == item->version;
    };
    if (std::any_of(m_items.begin(), m_items.end(), isSameVersion))
        return refuse(UpdateError::feedRepeatsVersion);
    if (m_items.size() == feedlimits::items)
        return refuse(UpdateError::feedTooComplex);
    m_items.append(*item);
}

} // namespace

Expected<QList<UpdateItem>, UpdateError> parseUpdateFeed(const QByteArray& feed)
{
    if (feed.size() > feedlimits::bytes)
        return Unexpected<UpdateError>(UpdateError::feedTooLarge);
    // UTF-16 without a mark is valid UTF-8 when it has zero characters.
    if (!feed.isValidUtf8() || feed.contains('\0'))
        return Unexpected<UpdateError>(UpdateError::feedNotUtf8);
    if (feed.contains("<!DOCTYPE") || feed.contains("<!ENTITY"))
        return Unexpected<UpdateError>(UpdateError::feedDeclaresEntities);
    return FeedReader().read(feed);
}

} // namespace trovell
