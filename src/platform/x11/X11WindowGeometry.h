// SPDX-License-Identifier: MIT
//
// The arithmetic of window frames on X11: from what the server tells of a window to the frame the
// user sees, and from a wanted frame to what the window manager must be asked. Root pixels: origin
// at the top left of the X screen, y downward. Pure functions, any thread.
#pragma once

#include <QList>
#include <QRectF>

#include <array>
#include <optional>

namespace trovell {

struct PixelRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const PixelRectangle&) const = default;
};

/// What surrounds a window on its four sides, in the order of _NET_FRAME_EXTENTS.
struct FrameExtents {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    bool operator==(const FrameExtents&) const = default;
};

/// All zeros for a property that is missing or too short.
[[nodiscard]] FrameExtents makeFrameExtents(const QList<quint32>& numbers);

struct DecoratedWindow {
    /// The client's window, without decorations.
    PixelRectangle client;
    /// The decorations of the window manager, outside of `client` (_NET_FRAME_EXTENTS).
    FrameExtents decorations;
    /// The shadow that the client draws, inside of `client` (_GTK_FRAME_EXTENTS).
    FrameExtents shadow;

    bool operator==(const DecoratedWindow&) const = default;
};

/// What the user sees of the window.
[[nodiscard]] PixelRectangle visibleFrame(const DecoratedWindow& window);

/// What a window allows its size to be (WM_NORMAL_HINTS, ICCCM 4.1.2.3).
struct SizeHints {
    int minimumWidth = 0;
    int minimumHeight = 0;
    int maximumWidth = 0; ///< 0: no limit
    int maximumHeight = 0;
    int baseWidth = 0;
    int baseHeight = 0;
    int widthIncrement = 1;
    int heightIncrement = 1;

    bool operator==(const SizeHints&) const = default;
};

/// `numbers` is the whole property; missing parts limit nothing.
[[nodiscard]] SizeHints makeSizeHints(const QList<quint32>& numbers);

/// The largest size within `client` that the hints allow, the smallest allowed one if none is.
[[nodiscard]] PixelRectangle withAllowedSize(const PixelRectangle& client, const SizeHints& hints);

/// The frame that the window has once it was asked for `target` and rounded to its size hints.
[[nodiscard]] PixelRectangle allowedFrame(const PixelRectangle& target,
                                          const DecoratedWindow& window, const SizeHints& hints);

/// The data of the _NET_MOVERESIZE_WINDOW message (EWMH section 3) that gives the window the
/// visible frame `target`, moved aside by `offset` pixels to the right.
[[nodiscard]] std::array<quint32, 5> moveResizeData(const PixelRectangle& target,
                                                    const DecoratedWindow& window,
                                                    const SizeHints& hints, int offset = 0);

/// One pixel is one point.
[[nodiscard]] QRectF frameFromPixels(const PixelRectangle& rectangle);
/// Rounded to whole pixels, so that a frame that was saved and brought back is the same.
[[nodiscard]] PixelRectangle pixelsFromFrame(const QRectF& frame);

} // namespace trovell
