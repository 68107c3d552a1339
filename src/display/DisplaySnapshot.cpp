// SPDX-License-Identifier: MIT

#include "display/DisplaySnapshot.h"

#include "display/Rectangle.h"

#include <algorithm>
#include <cmath>

namespace trovell {

namespace {

qint64 pixelLength(double scale, double points)
{
    const double pixels = std::trunc(scale * points);
    constexpr double limit = 9223372036854775808.0; // 2^63, exactly representable
    if (!(pixels >= -limit && pixels < limit))
        qFatal("A display reports a size that cannot be counted in pixels.");
    return static_cast<qint64>(pixels);
}

double identityTerm(const DisplayFingerprint& saved, const DisplayFingerprint& candidate)
{
    const bool isSameRole = saved.isMain == candidate.isMain;
    if (saved.localizedName == candidate.localizedName)
        return isSameRole ? 55 : 35;
    return isSameRole ? 20 : 0;
}

} // namespace

bool DisplaySnapshot::operator==(const DisplaySnapshot& other) const
{
    return isSameRectangle(frame, other.frame) &&
           isSameRectangle(visibleFrame, other.visibleFrame) && fingerprint == other.fingerprint;
}

QList<DisplaySnapshot> makeDisplaySnapshots(const QList<Screen>& screens,
                                            std::optional<qsizetype> mainScreen)
{
    const QPointF reference = mainScreen ? screens.at(*mainScreen).frame.topLeft() : QPointF();
    QList<DisplaySnapshot> snapshots;
    snapshots.reserve(screens.size());
    for (qsizetype index = 0; index < screens.size(); ++index) {
        const Screen& screen = screens.at(index);
        const QSizeF size = screen.frame.size();
        snapshots.append(
            {screen.frame, screen.visibleFrame,
             DisplayFingerprint{
                 screen.localizedName, pixelLength(screen.backingScaleFactor, size.width()),
                 pixelLength(screen.backingScaleFactor, size.height()), size.width(), size.height(),
                 screen.backingScaleFactor, screen.frame.x() - reference.x(),
                 screen.frame.y() - reference.y(), mainScreen == index}});
    }
    return snapshots;
}

double displayMatchScore(const DisplayFingerprint& saved, const DisplayFingerprint& candidate)
{
    const double sizeDifference = std::abs(saved.pointWidth - candidate.pointWidth) +
                                  std::abs(saved.pointHeight - candidate.pointHeight);
    const double scaleDifference =
        std::abs(saved.backingScaleFactor - candidate.backingScaleFactor);
    const double distance = std::abs(saved.relativeX - candidate.relativeX) +
                            std::abs(saved.relativeY - candidate.relativeY);
    return identityTerm(saved, candidate) + std::max(0.0, 25 - sizeDifference / 100) +
           std::max(0.0, 10 - 10 * scaleDifference) + std::max(0.0, 10 - distance / 200);
}

std::optional<DisplaySnapshot> bestDisplay(const DisplayFingerprint& saved,
                                           const QList<DisplaySnapshot>& displays)
{
    const auto best =
        std::max_element(displays.begin(), displays.end(), [&saved](const auto& a, const auto& b) {
            return displayMatchScore(saved, a.fingerprint) <
                   displayMatchScore(saved, b.fingerprint);
        });
    return best == displays.end() ? std::nullopt : std::optional(*best);
}

} // namespace trovell
