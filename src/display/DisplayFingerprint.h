// SPDX-License-Identifier: MIT
//
// The identity of a display, stored with each saved window so that the display can be
// recognised again. Plain values, any thread.
#pragma once

#include <QByteArray>
#include <QString>

namespace trovell {

struct DisplayFingerprint {
    QString localizedName;
    qint64 pixelWidth = 0;
    qint64 pixelHeight = 0;
    double pointWidth = 0;
    double pointHeight = 0;
    /// Device pixels per point.
    double backingScaleFactor = 1.0;
    /// Left edge of the display, in points from the left edge of the main display.
    double relativeX = 0;
    /// Bottom edge of the display, in points upward from the bottom edge of the main display.
    double relativeY = 0;
    bool isMain = false;

    bool operator==(const DisplayFingerprint&) const = default;
};

[[nodiscard]] size_t qHash(const DisplayFingerprint& fingerprint, size_t seed = 0) noexcept;

/// One compact JSON object; empty when a number is not finite, which JSON cannot hold.
[[nodiscard]] QByteArray encodeFingerprint(const DisplayFingerprint& fingerprint);

/// Never fails: bytes that are not the JSON object above give `fallbackFingerprint`.
[[nodiscard]] DisplayFingerprint decodeFingerprint(const QByteArray& data);

/// The fingerprint of an unknown display. It steers a window toward the main display.
[[nodiscard]] DisplayFingerprint fallbackFingerprint();

} // namespace trovell
