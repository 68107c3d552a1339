// SPDX-License-Identifier: MIT
//
// Puts tiled windows into their saved order and sizes without changing how the desktop divides its
// space: windows change places with each other, and borders between them move. What one launch
// wants of different applications is kept together for a while, because their windows share
// workspaces. Any thread; one arranges at a time.
#pragma once

#include "platform/sway/SwayConnection.h"
#include "platform/sway/SwayGoal.h"

#include <QHash>
#include <QMutex>

#include <chrono>

namespace trovell {

/// Two windows that have to change places.
using SwaySwap = std::pair<WindowId, WindowId>;

/// The exchanges, one after the other, that bring tiled windows of one workspace into the order of
/// the frames that they want, from left to right and from top to bottom.
[[nodiscard]] QList<SwaySwap> swapsFor(const QList<SwayWindow>& tiled,
                                       const QHash<WindowId, QRectF>& wanted);

class SwayTiling {
public:
    /// Arranges the tiled windows of the goals among all that were wanted lately. Does nothing
    /// without any.
    void arrange(const QList<SwayGoal>& goals, SwayConnection& connection);

private:
    using Time = SwayConnection::Time;
    struct Wish {
        QRectF frame;
        Time since;
    };

    void remember(const QList<SwayGoal>& goals);
    [[nodiscard]] QHash<WindowId, QRectF> wanted() const;

    QMutex m_mutex;
    QHash<WindowId, Wish> m_wishes;
};

} // namespace trovell
