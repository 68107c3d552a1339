// SPDX-License-Identifier: MIT

#include "views/style/Tokens.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

QJsonObject readTokens()
{
    QFile file(u":/trovell/tokens.json"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the design tokens are not compiled in");
    return QJsonDocument::fromJson(file.readAll()).object();
}

/// The key of tokens.json for an enumerator; one that begins with a digit cannot be spelled in C++.
QString tokenKey(const char* enumerator)
{
    const QString name = QString::fromLatin1(enumerator);
    if (name.size() == 3 && name.startsWith(u"xl"))
        return name.sliced(2) + u"xl"_s;
    return name;
}

QJsonValue require(const QJsonObject& table, const QString& key)
{
    const QJsonValue value = table[key];
    if (value.isUndefined())
        qFatal("the design tokens lack %s", qPrintable(key));
    return value;
}

template <typename Enum, size_t count>
void readNumbers(const QJsonObject& table, std::array<int, count>& numbers)
{
    const auto names = QMetaEnum::fromType<Enum>();
    for (size_t i = 0; i < count; ++i)
        numbers[i] = require(table, tokenKey(names.key(static_cast<int>(i)))).toInt();
}

TypeMeasures readMeasures(const QJsonObject& role)
{
    return {require(role, u"px"_s).toDouble(), require(role, u"line"_s).toDouble(),
            require(role, u"weight"_s).toInt(), require(role, u"tracking"_s).toDouble()};
}

QStringList readFamilies(const QJsonObject& font)
{
    QStringList families;
    for (const QString& list : {u"ui"_s, u"cjkFallback"_s}) {
        const QJsonArray names = require(font, list).toArray();
        for (const QJsonValue& name : names)
            families.append(name.toString());
    }
    return families;
}

} // namespace

Tokens Tokens::builtIn()
{
    return Tokens(readTokens());
}

Tokens::Tokens(const QJsonObject& root)
    : m_light(Palette::fromJson(root[u"color"][u"light"].toObject())),
      m_dark(Palette::fromJson(root[u"color"][u"dark"].toObject()))
{
    const QJsonObject type = require(root, u"type"_s).toObject();
    const auto roles = QMetaEnum::fromType<TextRole>();
    for (size_t i = 0; i < m_type.size(); ++i)
        m_type[i] =
            readMeasures(require(type, tokenKey(roles.key(static_cast<int>(i)))).toObject());

    const QJsonObject sizes = require(root, u"size"_s).toObject();
    readNumbers<Radius>(require(root, u"radius"_s).toObject(), m_radii);
    readNumbers<Space>(require(root, u"space"_s).toObject(), m_spaces);
    readNumbers<Size>(sizes, m_sizes);
    const QJsonArray choice = require(sizes, u"iconChoice"_s).toArray();
    m_iconChoice = QSize(choice[0].toInt(), choice[1].toInt());
    m_families = readFamilies(require(root, u"font"_s).toObject());
}

} // namespace trovell
