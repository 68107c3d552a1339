// SPDX-License-Identifier: MIT
//
// The version of a release, as the update feed and the program name it, and its order. A plain
// value; any thread.
#pragma once

#include <QList>
#include <QString>

#include <compare>
#include <optional>

namespace trovell {

/// Numbers joined by dots, then optionally a pre-release ("1.4-beta.2", "1.4b2") and a build
/// ("1.4+7f3a").
///
/// The order is total:
/// 1. The numbers decide, from left to right; they may have any length, and a missing one counts
///    as 0: 1.9 < 1.10, 1.4 = 1.4.0.
/// 2. With equal numbers a pre-release comes before its release: 1.4-beta < 1.4.
/// 3. Two pre-releases are compared run by run, a run being all digits or all letters, whatever
///    separates them: beta2 = beta.2. A number comes before a word, numbers go by value, words by
///    the alphabet with case ignored; if all runs of the shorter one are equal, it comes first:
///    beta < beta.1 < beta.2 < rc.
/// 4. The build does not count: 1.4+a = 1.4+b.
class ReleaseVersion {
public:
    /// None when `text` is no version or longer than 100 characters. ASCII only; a leading "v" is
    /// accepted.
    [[nodiscard]] static std::optional<ReleaseVersion> parse(const QString& text);

    bool operator==(const ReleaseVersion&) const = default;
    std::strong_ordering operator<=>(const ReleaseVersion& other) const;

private:
    struct Run {
        bool isWord = false;
        /// A word in lower case, or a number without leading zeros.
        QString text;

        bool operator==(const Run&) const = default;
        std::strong_ordering operator<=>(const Run& other) const;
    };

    static QList<Run> runs(const QString& text);

    /// Without zeros at the end.
    QList<Run> m_numbers;
    QList<Run> m_preRelease;
};

} // namespace trovell
