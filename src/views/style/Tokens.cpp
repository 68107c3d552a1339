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

/// "#RRGGBB" or "rgba(r,g,b,alpha)".
QColor parseColor(QStringView text)
{
    if (!text.startsWith(u"rgba("))
        return QColor(text);
    const QList<QStringView> parts = text.sliced(5, text.size() - 6).split(u',');
    if (parts.size() != 4)
        return {};
    QColor color(parts[0].toInt(), parts[1].toInt(), parts[2].toInt());
    color.setAlphaF(parts[3].toFloat());
    return color;
}

double parsePixels(QStringView text)
{
    return (text.endsWith(u"px") ? text.chopped(2) : text).toDouble();
}

/// Layers "0 8px 28px rgba(…), 0 1px 3px rgba(…)".
QList<ShadowLayer> parseShadow(QStringView text)
{
    QList<ShadowLayer> layers;
    for (const QStringView layer : text.split(u"), ")) {
        const QList<QStringView> parts = layer.split(u' ', Qt::SkipEmptyParts);
        if (parts.size() != 4)
            qFatal("a shadow of the design tokens is unreadable");
        const QString color = parts[3].toString() + (parts[3].endsWith(u')') ? u""_s : u")"_s);
        layers.append({parsePixels(parts[1]), parsePixels(parts[2]), parseColor(color)});
    }
    return layers;
}

} // namespace

Palette Palette::fromJson(const QJsonObject& table)
{
    Palette palette;
    const auto names = QMetaEnum::fromType<Color>();
    for (int i = 0; i < names.keyCount(); ++i) {
        const QColor color = parseColor(table[QLatin1StringView(names.key(i))].toString());
        if (!color.isValid())
            qFatal("the design tokens lack the colour %s", names.key(i));
        palette.m_colors[static_cast<size_t>(i)] = color;
    }
    const auto shadows = QMetaEnum::fromType<Shadow>();
    for (int i = 0; i < shadows.keyCount(); ++i)
        palette.m_shadows[static_cast<size_t>(i)] =
            parseShadow(table[QLatin1StringView(shadows.key(i))].toString());
    return palette;
}

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
