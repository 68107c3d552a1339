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

constexpr quint32 controlModifier = 0x1000;
constexpr quint32 optionModifier = 0x0800;

} // namespace

size_t qHash(const ShortcutDefinition& shortcut, size_t seed) noexcept
{
    return qHashMulti(seed, shortcut.keyCode, shortcut.modifiers, shortcut.displayValue);
}

std::optional<QKeyCombination> keyCombination(const ShortcutDefinition& shortcut)
{
    // The codes are not in the order of the digits.
    static const QHash<quint32, Qt::Key> keys{
        {18, Qt::Key_1}, {19, Qt::Key_2}, {20, Qt::Key_3}, {21, Qt::Key_4}, {23, Qt::Key_5}};
    const auto key = keys.constFind(shortcut.keyCode);
    // Without a modifier nobody could type the digit any more.
    if (key == keys.constEnd() || shortcut.modifiers == 0 ||
        (shortcut.modifiers & ~(controlModifier | optionModifier)) != 0)
        return std::nullopt;
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ControlModifier, (shortcut.modifiers & controlModifier) != 0);
    modifiers.setFlag(Qt::AltModifier, (shortcut.modifiers & optionModifier) != 0);
    return QKeyCombination(modifiers, *key);
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
