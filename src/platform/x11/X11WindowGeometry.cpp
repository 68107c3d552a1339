// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowGeometry.h"

#include <algorithm>
#include <cmath>

namespace trovell {

namespace {

enum HintFlag : quint32 {
    hasMinimum = 1u << 4,
    hasMaximum = 1u << 5,
    hasIncrements = 1u << 6,
    hasBase = 1u << 8,
};

int allowedLength(int length, int minimum, int maximum, int base, int increment)
{
    const int steps = std::max(0, (length - base) / increment);
    int allowed = base + steps * increment;
    if (maximum > 0)
        allowed = std::min(allowed, maximum);
    return std::max({allowed, minimum, 1});
}

/// Far beyond every display, and far from overflow.
int wholePixels(double length)
{
    constexpr double limit = 1 << 24;
    return static_cast<int>(std::lround(std::clamp(length, -limit, limit)));
}

/// The client window that has the visible frame `target`.
PixelRectangle clientForFrame(const PixelRectangle& target, const DecoratedWindow& window)
{
    const FrameExtents& outside = window.decorations;
    const FrameExtents& inside = window.shadow;
    return {target.x + outside.left - inside.left, target.y + outside.top - inside.top,
            target.width - outside.left - outside.right + inside.left + inside.right,
            target.height - outside.top - outside.bottom + inside.top + inside.bottom};
}

} // namespace

FrameExtents makeFrameExtents(const QList<quint32>& numbers)
{
    if (numbers.size() < 4)
        return {};
    const auto side = [&](qsizetype index) { return static_cast<int>(numbers.at(index)); };
    return {side(0), side(1), side(2), side(3)};
}

PixelRectangle visibleFrame(const DecoratedWindow& window)
{
    const FrameExtents& outside = window.decorations;
    const FrameExtents& inside = window.shadow;
    return {window.client.x - outside.left + inside.left,
            window.client.y - outside.top + inside.top,
            window.client.width + outside.left + outside.right - inside.left - inside.right,
            window.client.height + outside.top + outside.bottom - inside.top - inside.bottom};
}

SizeHints makeSizeHints(const QList<quint32>& numbers)
{
    const quint32 flags = numbers.value(0);
    const auto number = [&](HintFlag flag, qsizetype index) {
        const int value = static_cast<int>(numbers.value(index));
        return flags & flag ? std::max(0, value) : 0;
    };
    SizeHints hints;
    hints.minimumWidth = number(hasMinimum, 5);
    hints.minimumHeight = number(hasMinimum, 6);
    hints.maximumWidth = number(hasMaximum, 7);
    hints.maximumHeight = number(hasMaximum, 8);
    hints.widthIncrement = std::max(1, number(hasIncrements, 9));
    hints.heightIncrement = std::max(1, number(hasIncrements, 10));
    // ICCCM 4.1.2.3: each of base and minimum size stands in for the other.
    hints.baseWidth = flags & hasBase ? number(hasBase, 15) : hints.minimumWidth;
    hints.baseHeight = flags & hasBase ? number(hasBase, 16) : hints.minimumHeight;
    if (!(flags & hasMinimum)) {
        hints.minimumWidth = hints.baseWidth;
        hints.minimumHeight = hints.baseHeight;
    }
    return hints;
}

PixelRectangle withAllowedSize(const PixelRectangle& client, const SizeHints& hints)
{
    return {client.x, client.y,
            allowedLength(client.width, hints.minimumWidth, hints.maximumWidth, hints.baseWidth,
                          hints.widthIncrement),
            allowedLength(client.height, hints.minimumHeight, hints.maximumHeight, hints.baseHeight,
                          hints.heightIncrement)};
}

PixelRectangle allowedFrame(const PixelRectangle& target, const DecoratedWindow& window,
                            const SizeHints& hints)
{
    DecoratedWindow wanted = window;
    wanted.client = withAllowedSize(clientForFrame(target, window), hints);
    return visibleFrame(wanted);
}

std::array<quint32, 5> moveResizeData(const PixelRectangle& target, const DecoratedWindow& window,
                                      const SizeHints& hints, int offset)
{
    // With north-west gravity x and y are the corner of the frame on every window manager; static
    // gravity and a plain configure request miss by the decorations on some.
    constexpr quint32 northWestGravity = 1;
    constexpr quint32 allFour = 0xf << 8;
    constexpr quint32 fromPager = 2 << 12;
    const PixelRectangle client = withAllowedSize(clientForFrame(target, window), hints);
    const int cornerX = client.x - window.decorations.left + offset;
    const int cornerY = client.y - window.decorations.top;
    return {northWestGravity | allFour | fromPager, static_cast<quint32>(cornerX),
            static_cast<quint32>(cornerY), static_cast<quint32>(client.width),
            static_cast<quint32>(client.height)};
}

QRectF frameFromPixels(const PixelRectangle& rectangle)
{
    return QRectF(rectangle.x, rectangle.y, rectangle.width, rectangle.height);
}

PixelRectangle pixelsFromFrame(const QRectF& frame)
{
    return {wholePixels(frame.x()), wholePixels(frame.y()), wholePixels(frame.width()),
            wholePixels(frame.height())};
}

} // namespace trovell
