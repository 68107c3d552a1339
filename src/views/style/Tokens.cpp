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

QJsonValue require(const QJsonObject& table, QLatin1StringView key)
{
    const QJsonValue value = table[key];
    if (value.isUndefined())
        qFatal("the design tokens lack %s", key.data());
    return value;
}

template <typename Enum, size_t count>
void readNumbers(const QJsonObject& table, std::array<int, count>& numbers)
{
    const auto names = QMetaEnum::fromType<Enum>();
    for (size_t i = 0; i < count; ++i)
        numbers[i] = require(table, QLatin1StringView(names.key(static_cast<int>(i)))).toInt();
}

TypeMeasures readMeasures(const QJsonObject& role)
{
    return {require(role, "px"_L1).toDouble(), require(role, "line"_L1).toDouble(),
            require(role, "weight"_L1).toInt(), require(role, "tracking"_L1).toDouble()};
}

QStringList readFamilies(const QJsonObject& font)
{
    QStringList families;
    for (const QLatin1StringView list : {"ui"_L1, "cjkFallback"_L1}) {
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
    const QJsonObject type = require(root, "type"_L1).toObject();
    const auto roles = QMetaEnum::fromType<TextRole>();
    for (size_t i = 0; i < m_type.size(); ++i)
        m_type[i] = readMeasures(
            require(type, QLatin1StringView(roles.key(static_cast<int>(i)))).toObject());

    const QJsonObject sizes = require(root, "size"_L1).toObject();
    readNumbers<Radius>(require(root, "radius"_L1).toObject(), m_radii);
    readNumbers<Size>(sizes, m_sizes);
    const QJsonArray choice = require(sizes, "iconChoice"_L1).toArray();
    m_iconChoice = QSize(choice[0].toInt(), choice[1].toInt());
    m_families = readFamilies(require(root, "font"_L1).toObject());
}

} // namespace trovell
