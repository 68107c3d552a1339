// SPDX-License-Identifier: MIT
//
// The one place where what a desktop reports becomes what is stored, and back. Pure, any thread.
//
// Stored frames are in screen coordinates: points, origin at the bottom left of the primary
// display, y upward.
#pragma once

#include "display/Display.h"
#include "display/DisplaySnapshot.h"
#include "windows/DesktopWindow.h"

#include <QList>
#include <QRectF>
#include <QString>

namespace trovell {

/// The role that every window is stored with.
[[nodiscard]] QString storedRole();
[[nodiscard]] QString storedSubrole(WindowKind kind);
/// The states that a saved window can come back in, as words with blanks between them.
[[nodiscard]] QString storedStates(WindowStates states);
/// Words that it does not know are passed over.
[[nodiscard]] WindowStates statesFromStored(const QString& words);

/// All displays of a desktop as they are stored.
class StoredDisplays {
public:
    explicit StoredDisplays(const QList<Display>& displays);

    /// In the order of the displays. The primary one is main, else the first.
    [[nodiscard]] const QList<DisplaySnapshot>& snapshots() const { return m_snapshots; }

    [[nodiscard]] QRectF storedFrame(const QRectF& desktopFrame) const;
    [[nodiscard]] QRectF desktopFrame(const QRectF& storedFrame) const;

private:
    /// The main display's, in desktop coordinates.
    QPointF m_bottomLeft;
    QList<DisplaySnapshot> m_snapshots;
};

} // namespace trovell
