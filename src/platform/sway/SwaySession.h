// SPDX-License-Identifier: MIT
//
// Whose windows this session shows: sway or i3, if it is one of them. Variables are inherited by
// nested sessions, so the one counts that serves this program's own display. Any thread; waits for
// no more than a connection.
#pragma once

#include "platform/desktop/SessionFacts.h"

#include <QByteArray>

namespace trovell {

/// The IPC socket of the sway that this session's Wayland display belongs to; empty when that is
/// another compositor.
[[nodiscard]] QByteArray swaySocket(const SessionFacts& session);

/// The IPC socket of the i3 that manages this session's X11 display; empty without one.
[[nodiscard]] QByteArray i3Socket(const SessionFacts& session);

} // namespace trovell
