// SPDX-License-Identifier: MIT

#include "display/DisplayFingerprint.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <optional>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

std::optional<double> readNumber(const QJsonObject& object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<qint64> readInteger(const QJsonObject& object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    // Two different defaults tell an integer from a number that does not fit one.
    if (!value.isDouble() || value.toInteger(0) != value.toInteger(1))
        return std::nullopt;
    return value.toInteger();
}

std::optional<DisplayFingerprint> readFingerprint(const QJsonObject& object)
{
    const QJsonValue name = object.value(QLatin1StringView("localizedName"));
    const QJsonValue isMain = object.value(QLatin1StringView("isMain"));
    const auto pixelWidth = readInteger(object, QLatin1StringView("pixelWidth"));
    const auto pixelHeight = readInteger(object, QLatin1StringView("pixelHeight"));
    const auto pointWidth = readNumber(object, QLatin1StringView("pointWidth"));
    const auto pointHeight = readNumber(object, QLatin1StringView("pointHeight"));
    const auto scale = readNumber(object, QLatin1StringView("backingScaleFactor"));
    const auto relativeX = readNumber(object, QLatin1StringView("relativeX"));
    const auto relativeY = readNumber(object, QLatin1StringView("relativeY"));
    if (!name.isString() || !isMain.isBool() || !pixelWidth || !pixelHeight || !pointWidth ||
        !pointHeight || !scale || !relativeX || !relativeY)
        return std::nullopt;
    return DisplayFingerprint{name.toString(), *pixelWidth,  *pixelHeight,
                              *pointWidth,     *pointHeight, *scale,
                              *relativeX,      *relativeY,   isMain.toBool()};
}

bool isFinite(const DisplayFingerprint& fingerprint)
{
    return std::isfinite(fingerprint.pointWidth) && std::isfinite(fingerprint.pointHeight) &&
           std::isfinite(fingerprint.backingScaleFactor) && std::isfinite(fingerprint.relativeX) &&
           std::isfinite(fingerprint.relativeY);
}

} // namespace

size_t qHash(const DisplayFingerprint& fingerprint, size_t seed) noexcept
{
    return qHashMulti(seed, fingerprint.localizedName, fingerprint.pixelWidth,
                      fingerprint.pixelHeight, fingerprint.pointWidth, fingerprint.pointHeight,
                      fingerprint.backingScaleFactor, fingerprint.relativeX, fingerprint.relativeY,
                      fingerprint.isMain);
}

QByteArray encodeFingerprint(const DisplayFingerprint& fingerprint)
{
    if (!isFinite(fingerprint))
        return {};
    const QJsonObject object{
        {u"localizedName"_s, fingerprint.localizedName},
        {u"pixelWidth"_s, fingerprint.pixelWidth},
        {u"pixelHeight"_s, fingerprint.pixelHeight},
        {u"pointWidth"_s, fingerprint.pointWidth},
        {u"pointHeight"_s, fingerprint.pointHeight},
        {u"backingScaleFactor"_s, fingerprint.backingScaleFactor},
        {u"relativeX"_s, fingerprint.relativeX},
        {u"relativeY"_s, fingerprint.relativeY},
        {u"isMain"_s, fingerprint.isMain},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

DisplayFingerprint decodeFingerprint(const QByteArray& data)
{
    const QJsonDocument document = QJsonDocument::fromJson(data);
    return readFingerprint(document.object()).value_or(fallbackFingerprint());
}

DisplayFingerprint fallbackFingerprint()
{
    DisplayFingerprint fingerprint;
    fingerprint.localizedName = u"Display"_s;
    fingerprint.isMain = true;
    return fingerprint;
}

} // namespace trovell
