// SPDX-License-Identifier: MIT

#include "model/ShortcutDefinition.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

std::optional<quint32> readUnsigned(const QJsonValue& value)
{
    // An absent member, another type and a fraction all read as the default, which is out of range.
    const qint64 number = value.toInteger(-1);
    if (number < 0 || number > std::numeric_limits<quint32>::max())
        return std::nullopt;
    return static_cast<quint32>(number);
}

} // namespace

size_t qHash(const ShortcutDefinition& shortcut, size_t seed) noexcept
{
    return qHashMulti(seed, shortcut.keyCode, shortcut.modifiers, shortcut.displayValue);
}

QByteArray encodeShortcut(const ShortcutDefinition& shortcut)
{
    const QJsonObject object{
        {u"keyCode"_s, static_cast<qint64>(shortcut.keyCode)},
        {u"modifiers"_s, static_cast<qint64>(shortcut.modifiers)},
        {u"displayValue"_s, shortcut.displayValue},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<ShortcutDefinition> decodeShortcut(const QByteArray& data)
{
    const QJsonObject object = QJsonDocument::fromJson(data).object();
    const auto keyCode = readUnsigned(object.value(QLatin1StringView("keyCode")));
    const auto modifiers = readUnsigned(object.value(QLatin1StringView("modifiers")));
    const QJsonValue displayValue = object.value(QLatin1StringView("displayValue"));
    if (!keyCode || !modifiers || !displayValue.isString())
        return std::nullopt;
    return ShortcutDefinition{*keyCode, *modifiers, displayValue.toString()};
}

} // namespace trovell
