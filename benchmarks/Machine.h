// SPDX-License-Identifier: MIT
//
// The machine that the figures belong to, in words.
#pragma once

#include <QString>

namespace trovell::bench {

/// Processor, memory, system and kernel, such as "2 cores of …, 24 GB, …".
[[nodiscard]] QString describeMachine();

/// The average number of running processes over the last minute: how busy the machine is.
[[nodiscard]] double loadAverage();

} // namespace trovell::bench
