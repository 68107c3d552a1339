// SPDX-License-Identifier: MIT
//
// What the system tells of a running process of this user (proc(5)). Any thread.
#pragma once

#include <QByteArray>

namespace trovell {

struct ProcessFacts {
    /// The desktop file that GIO started it from; empty when it was started otherwise, or by a
    /// process that was.
    QByteArray launchedDesktopFile;
    /// Its executable; empty when that is not told.
    QByteArray executable;
};

/// Empty facts when there is no such process or it may not be examined.
[[nodiscard]] ProcessFacts readProcessFacts(qint32 processIdentifier);

} // namespace trovell
