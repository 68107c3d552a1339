// SPDX-License-Identifier: MIT
//
// What repeated measurements gave, and how contestants are measured so that a busy moment of the
// machine hits all of them. Times are in seconds.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace trovell::bench {

using Samples = std::vector<double>;

/// Interpolated; `fraction` is 0.5 for the median. NaN without samples.
[[nodiscard]] double quantile(Samples samples, double fraction);
[[nodiscard]] double median(const Samples& samples);

/// How many times larger than `denominators` the `numerators` are: the median over the rounds, so
/// that what slows a whole round down has no weight.
[[nodiscard]] double medianRatio(const Samples& numerators, const Samples& denominators);

/// The time that one call takes.
[[nodiscard]] double secondsOf(const std::function<void()>& call);
/// The processor time that one call takes on this thread, averaged over at least twenty
/// milliseconds of calls: for pure computations, which a busy machine then does not disturb.
[[nodiscard]] double processorSecondsPerCall(const std::function<void()>& call);

/// A contestant measures itself once and returns the seconds.
using Contestant = std::function<double()>;

/// Every contestant once per round, each round beginning with another one. A first round warms up
/// and is not counted. On a slow machine there are fewer rounds, three at least: after half a
/// minute no other begins. One list of samples for each contestant, in the order of the rounds.
[[nodiscard]] std::vector<Samples> interleave(int rounds,
                                              const std::vector<Contestant>& contestants);

/// With a fitting unit and three digits.
[[nodiscard]] QString formatSeconds(double seconds);
/// The median and, in brackets, the quartiles.
[[nodiscard]] QString formatSpread(const Samples& seconds);
/// Such as "1.25×".
[[nodiscard]] QString formatRatio(double ratio);

} // namespace trovell::bench
