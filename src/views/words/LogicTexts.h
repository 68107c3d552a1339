// SPDX-License-Identifier: MIT
//
// What has to be known of the texts that come from the logic. It knows nothing of translation and
// hands over finished texts in the product's words. Whole sentences in its sources are keys as they
// stand; texts with a payload are recognised by the patterns here, and single words have to be
// named to become keys. A test fails for a text with a payload that no pattern covers.
#pragma once

#include "support/TextKey.h"
#include "views/words/Phrases.h"

#include <array>

namespace trovell {

/// Why the process could not be started. The payload is a detail itself.
inline constexpr auto storeOpeningFailure =
    u"Trovell could not open its local workspace store: %@"_key;

/// Error descriptions, details of results and states of services, those that begin with fixed words
/// before those that begin with the payload.
inline constexpr std::array detailPatterns{
    storeOpeningFailure.characters,
    u"Trovell %@ needs a newer system than this one. You have the newest version that runs here."_key
        .characters,
    u"You have a newer version of Trovell than the newest one offered, which is %@."_key.characters,
    phrases::applicationUnavailable.characters,
};

inline constexpr std::array noticePatterns{
    phrases::renamed.characters,
    phrases::savedAsNewWorkspace.characters,
    phrases::savedLayoutCleared.characters,
    phrases::layoutUpdated.characters,
    phrases::captured.characters,
    phrases::created.characters,
    phrases::saved.characters,
};

/// Single words that are shown by the name of a choice, and the shortcuts.
inline constexpr std::array choiceNames{
    u"Light"_key.characters, u"System"_key.characters, u"Dark"_key.characters,
    u"⌃⌥1"_key.characters,   u"⌃⌥2"_key.characters,    u"⌃⌥3"_key.characters,
    u"⌃⌥4"_key.characters,   u"⌃⌥5"_key.characters,
};

} // namespace trovell
