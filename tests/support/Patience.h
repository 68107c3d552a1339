// SPDX-License-Identifier: MIT
//
// How long tests wait for an event: far longer than any machine needs, however busy it is. Replaces
// Qt Test's own five seconds. Main thread of a test.
#pragma once

#include <QTest>

namespace trovell::test {

constexpr int patience = 60'000; // milliseconds

} // namespace trovell::test

#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), trovell::test::patience)
#define QTRY_COMPARE(actual, expected)                                                             \
    QTRY_COMPARE_WITH_TIMEOUT((actual), (expected), trovell::test::patience)
