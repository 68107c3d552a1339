// SPDX-License-Identifier: MIT
//
// Pairs saved placements with live windows. Window identities do not survive a relaunch, so the
// pairing goes by title, role, subrole and position in the window list, and rather leaves a
// placement unpaired than gives it a window that merely happens to exist. Pure, any thread.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace trovell {

/// A saved placement that looks for its window.
struct WindowMatchRequest {
    QUuid id;
    std::optional<QString> titleHint;
    std::optional<QString> role;
    std::optional<QString> subrole;
    qint64 indexHint = 0;

    bool operator==(const WindowMatchRequest&) const = default;
};

/// A live ordinary window.
struct WindowMatchCandidate {
    /// Position among all windows of the application, also those that are not ordinary.
    qint64 index = 0;
    std::optional<QString> title;
    std::optional<QString> role;
    std::optional<QString> subrole;

    bool operator==(const WindowMatchCandidate&) const = default;
};

/// Without case, diacritics and surrounding white space, in the user's current locale.
[[nodiscard]] QString normalizedTitle(const std::optional<QString>& title);

/// 0 (nothing in common) to 1, for two normalized titles.
[[nodiscard]] double titleSimilarity(const QString& a, const QString& b);

/// How well a window fits a placement, in a matching of so many requests and candidates; none
/// when it must not be used for it.
[[nodiscard]] std::optional<double> matchScore(const WindowMatchRequest& request,
                                               const WindowMatchCandidate& candidate,
                                               qsizetype requestCount, qsizetype candidateCount);

/// What else holds in one matching.
struct MatchingRules {
    /// Whether titles that merely share words are alike enough.
    bool takesWords = true;
    /// Words of this name say nothing about a window of that application, nor does the ending of a
    /// file's name.
    QString applicationName = {};
};

/// Request id → position in `candidates`. Every window serves at most one placement; placements
/// without an acceptable window are absent. Among equally good windows the first one is taken.
[[nodiscard]] QHash<QUuid, qsizetype> assignWindows(const QList<WindowMatchRequest>& requests,
                                                    const QList<WindowMatchCandidate>& candidates,
                                                    const MatchingRules& rules = {});

} // namespace trovell
