// SPDX-License-Identifier: MIT
//
// Window titles to measure with.
#pragma once

#include <QString>

namespace trovell::bench {

/// As browsers, editors and terminals name their windows; different for every index.
[[nodiscard]] QString realisticTitle(int index);

/// Long and in several scripts, with marks to remove. Titles have less than half of their words in
/// common, so that none fits another and every pair has to be compared to the end.
[[nodiscard]] QString longTitle(int index);

/// Thousands of equal letters: the hardest case for a search of one text in another.
[[nodiscard]] QString repetitiveTitle(int index);

} // namespace trovell::bench
