// SPDX-License-Identifier: MIT

#include "views/style/Palette.h"

#include <QJsonObject>
#include <QMetaEnum>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

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

} // namespace trovell
