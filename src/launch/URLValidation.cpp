// SPDX-License-Identifier: MIT

#include "launch/URLValidation.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// An address taken apart by RFC 3986; `host` is as typed, without percent escapes.
struct ParsedURL {
    QUrl url;
    QString host;
};

/// Percent-encodes what RFC 3986 does not allow in a component; existing escapes stay.
QString encodedComponent(const QString& text, const QByteArray& allowedDelimiters)
{
    static const QRegularExpression escapedEscape(u"%25([0-9A-Fa-f]{2})"_s);
    QString encoded =
        QString::fromLatin1(QUrl::toPercentEncoding(text, "!$&'()*+,;=:" + allowedDelimiters));
    return encoded.replace(escapedEscape, u"%\\1"_s);
}

bool hasAcceptableCharacters(const QString& text)
{
    // Nobody means an invisible control character: a link broken over two lines is no address.
    const auto isControl = [](QChar character) {
        return character.category() == QChar::Other_Control;
    };
    return text.isValidUtf16() && std::none_of(text.begin(), text.end(), isControl);
}

/// Fills in user information, host and port. False when `authority` is malformed.
bool setAuthority(ParsedURL& parsed, const QString& authority)
{
    static const QRegularExpression pattern(
        u"^(?:([^@]*)@)?(\\[[^\\[\\]@]*\\]|[^:@\\[\\]]*)(?::([0-9]*))?$"_s);
    const QRegularExpressionMatch match = pattern.match(authority);
    const QString port = match.captured(3);
    bool isPortNumber = true;
    const int portNumber = port.isEmpty() ? -1 : port.toUShort(&isPortNumber);
    if (!match.hasMatch() || !isPortNumber)
        return false;
    if (match.hasCaptured(1))
        parsed.url.setUserInfo(encodedComponent(match.captured(1), {}), QUrl::StrictMode);
    parsed.host = QUrl::fromPercentEncoding(match.captured(2).toUtf8());
    parsed.url.setHost(parsed.host, QUrl::DecodedMode);
    parsed.url.setPort(portNumber);
    // A host that QUrl refuses is left empty.
    return parsed.url.host().isEmpty() == parsed.host.isEmpty();
}

/// QUrl's own parser is not used: it takes numbers for IPv4 addresses (a host "16843009" would
/// gain dots), moves an at sign from the host into the user name and refuses escapes in hosts.
std::optional<ParsedURL> parsedURL(const QString& text)
{
    // RFC 3986, appendix B, with the scheme's own grammar.
    static const QRegularExpression pattern(
        u"^(?:([A-Za-z][A-Za-z0-9+.-]*):)(//([^/?#]*))?([^?#]*)(\\?([^#]*))?(#(.*))?$"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch() || !hasAcceptableCharacters(text))
        return std::nullopt;
    ParsedURL parsed;
    parsed.url.setScheme(match.captured(1));
    if (match.hasCaptured(2) && !setAuthority(parsed, match.captured(3)))
        return std::nullopt;
    parsed.url.setPath(encodedComponent(match.captured(4), "@/"), QUrl::StrictMode);
    if (match.hasCaptured(5))
        parsed.url.setQuery(encodedComponent(match.captured(6), "@/?"), QUrl::StrictMode);
    if (match.hasCaptured(7))
        parsed.url.setFragment(encodedComponent(match.captured(8), "@/?"), QUrl::StrictMode);
    return parsed.url.isValid() ? std::optional(parsed) : std::nullopt;
}

bool hasDottedHost(const ParsedURL& parsed)
{
    // IDNA has other dots, such as the ideographic full stop; they are full stops in its ASCII
    // form.
    return parsed.host.contains(u'.') || QUrl::toAce(parsed.host).contains('.');
}

} // namespace

Message description(URLValidationError error)
{
    switch (error) {
    case URLValidationError::empty:
        return u"Enter a web address."_key;
    case URLValidationError::invalid:
        return u"Enter a valid web address."_key;
    case URLValidationError::unsupportedScheme:
        return u"Trovell supports HTTP and HTTPS links."_key;
    }
    Q_UNREACHABLE();
}

Expected<QUrl, URLValidationError> validatedWebURL(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return Unexpected(URLValidationError::empty);
    const QString candidate = trimmed.contains(u"://") ? trimmed : u"https://"_s + trimmed;

    const std::optional<ParsedURL> parsed = parsedURL(candidate);
    if (!parsed)
        return Unexpected(URLValidationError::invalid);
    // QUrl keeps schemes in lower case.
    if (parsed->url.scheme() != u"https" && parsed->url.scheme() != u"http")
        return Unexpected(URLValidationError::unsupportedScheme);
    if (!hasDottedHost(*parsed))
        return Unexpected(URLValidationError::invalid);
    return parsed->url;
}

} // namespace trovell
