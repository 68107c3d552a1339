// SPDX-License-Identifier: MIT
//
// Runs another program as people's scripts do, and times it from its start to its exit.
#pragma once

#include <QByteArrayList>

namespace trovell::bench {

/// Seconds until the program has exited, its output thrown away. Sets `hasFailed` when it did not
/// start or did not succeed, and leaves it alone otherwise.
double runPeer(const QByteArrayList& command, bool& hasFailed);

} // namespace trovell::bench
