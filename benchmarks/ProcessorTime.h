// SPDX-License-Identifier: MIT
//
// How much processor time processes have used.
#pragma once

#include <QByteArray>

#include <sys/types.h>

namespace trovell::bench {

/// Seconds that all threads of this process have used.
[[nodiscard]] double ownProcessorSeconds();
/// The same of another process, in hundredths; 0 when it does not run.
[[nodiscard]] double processorSeconds(pid_t process);

/// The X server behind a display name, 0 when there is none on this machine.
[[nodiscard]] pid_t serverProcess(const QByteArray& displayName);

} // namespace trovell::bench
