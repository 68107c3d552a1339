// SPDX-License-Identifier: MIT

#include "Samples.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

#include <time.h>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

struct Unit {
    double seconds;
    const char* name;
};

Unit fittingUnit(double seconds)
{
    if (seconds < 1e-3)
        return {1e-6, "µs"};
    if (seconds < 1)
        return {1e-3, "ms"};
    return {1, "s"};
}

/// Three significant digits and never an exponent.
QString threeDigits(double value)
{
    // Written so that what is no number has one digit.
    const int digitsBefore = value >= 1 ? int(std::floor(std::log10(value))) + 1 : 1;
    return QString::number(value, 'f', std::max(0, 3 - digitsBefore));
}

double threadSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

} // namespace

double quantile(Samples samples, double fraction)
{
    if (samples.empty())
        return std::numeric_limits<double>::quiet_NaN();
    std::ranges::sort(samples);
    const double position = fraction * double(samples.size() - 1);
    const auto below = static_cast<size_t>(position);
    const size_t above = std::min(below + 1, samples.size() - 1);
    return std::lerp(samples[below], samples[above], position - double(below));
}

double median(const Samples& samples)
{
    return quantile(samples, 0.5);
}

double medianRatio(const Samples& numerators, const Samples& denominators)
{
    Samples ratios;
    for (size_t round = 0; round < std::min(numerators.size(), denominators.size()); ++round)
        ratios.push_back(numerators[round] / denominators[round]);
    return median(ratios);
}

double secondsOf(const std::function<void()>& call)
{
    const auto begin = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double processorSecondsPerCall(const std::function<void()>& call)
{
    constexpr double enough = 0.02;
    for (int calls = 1;; calls *= 2) {
        const double begin = threadSeconds();
        for (int index = 0; index < calls; ++index)
            call();
        const double seconds = threadSeconds() - begin;
        if (seconds >= enough)
            return seconds / calls;
    }
}

std::vector<Samples> interleave(int rounds, const std::vector<Contestant>& contestants)
{
    using namespace std::chrono_literals;
    constexpr int fewestRounds = 3;
    const auto end = std::chrono::steady_clock::now() + 30s;
    std::vector<Samples> samples(contestants.size());
    for (int round = -1; round < rounds; ++round) {
        if (round >= fewestRounds && std::chrono::steady_clock::now() > end)
            break;
        for (size_t turn = 0; turn < contestants.size(); ++turn) {
            const size_t index = (turn + size_t(round + 1)) % contestants.size();
            const double seconds = contestants[index]();
            if (round >= 0)
                samples[index].push_back(seconds);
        }
    }
    return samples;
}

QString formatSeconds(double seconds)
{
    const Unit unit = fittingUnit(seconds);
    return threeDigits(seconds / unit.seconds) + u' ' + QString::fromUtf8(unit.name);
}

QString formatSpread(const Samples& seconds)
{
    const Unit unit = fittingUnit(median(seconds));
    const auto part = [&](double fraction) {
        return threeDigits(quantile(seconds, fraction) / unit.seconds);
    };
    return u"%1 %2 (%3–%4)"_s.arg(part(0.5), QString::fromUtf8(unit.name), part(0.25), part(0.75));
}

QString formatRatio(double ratio)
{
    return threeDigits(ratio) + u'×';
}

} // namespace trovell::bench
