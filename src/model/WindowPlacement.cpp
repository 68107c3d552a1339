// SPDX-License-Identifier: MIT

#include "model/WindowPlacement.h"

namespace trovell {

namespace {

void setFrames(WindowPlacementValues& values, const NormalizedFrame& normalized,
               const QRectF& absolute)
{
    values.normalizedX = normalized.x;
    values.normalizedY = normalized.y;
    values.normalizedWidth = normalized.width;
    values.normalizedHeight = normalized.height;
    values.absoluteX = absolute.x();
    values.absoluteY = absolute.y();
    values.absoluteWidth = absolute.width();
    values.absoluteHeight = absolute.height();
}

} // namespace

WindowPlacement::WindowPlacement(WindowPlacementValues values)
    : RecordOf(std::move(values), nullptr)
{
}

WindowPlacement::WindowPlacement(QString bundleIdentifier, QString applicationName,
                                 std::optional<QString> windowTitleHint,
                                 std::optional<QString> windowRole,
                                 std::optional<QString> windowSubrole, qint64 windowIndexHint,
                                 const NormalizedFrame& normalizedFrame,
                                 const QRectF& absoluteFrame,
                                 const DisplayFingerprint& displayFingerprint, bool isEnabled)
    : RecordOf(
          [&] {
              WindowPlacementValues values{
                  .bundleIdentifier = std::move(bundleIdentifier),
                  .applicationName = std::move(applicationName),
                  .windowTitleHint = std::move(windowTitleHint),
                  .windowRole = std::move(windowRole),
                  .windowSubrole = std::move(windowSubrole),
                  .windowIndexHint = windowIndexHint,
                  .displayFingerprintData = encodeFingerprint(displayFingerprint),
                  .isEnabled = isEnabled,
              };
              setFrames(values, normalizedFrame, absoluteFrame.normalized());
              return values;
          }(),
          nullptr)
{
}

const std::optional<QString>& WindowPlacement::windowTitleHint() const
{
    return values().windowTitleHint;
}

const std::optional<QString>& WindowPlacement::windowSubrole() const
{
    return values().windowSubrole;
}

const QByteArray& WindowPlacement::displayFingerprintData() const
{
    return values().displayFingerprintData;
}

void WindowPlacement::setWindowTitleHint(const std::optional<QString>& title)
{
    write(&Values::windowTitleHint, title);
}

void WindowPlacement::setWindowSubrole(const std::optional<QString>& subrole)
{
    write(&Values::windowSubrole, subrole);
}

void WindowPlacement::setDisplayFingerprintData(const QByteArray& data)
{
    write(&Values::displayFingerprintData, data);
}

NormalizedFrame WindowPlacement::savedNormalizedFrame() const
{
    return {normalizedX(), normalizedY(), normalizedWidth(), normalizedHeight()};
}

QRectF WindowPlacement::savedAbsoluteFrame() const
{
    return {absoluteX(), absoluteY(), absoluteWidth(), absoluteHeight()};
}

DisplayFingerprint WindowPlacement::savedDisplayFingerprint() const
{
    return decodeFingerprint(displayFingerprintData());
}

std::unique_ptr<WindowPlacement> WindowPlacement::duplicate() const
{
    WindowPlacementValues copy = values();
    copy.id = makeRecordId();
    copy.displayFingerprintData = encodeFingerprint(savedDisplayFingerprint());
    setFrames(copy, savedNormalizedFrame(), savedAbsoluteFrame().normalized());
    return std::make_unique<WindowPlacement>(std::move(copy));
}

} // namespace trovell
