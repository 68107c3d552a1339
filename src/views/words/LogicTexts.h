// The keys of the texts that come from the logic, which knows nothing of translation: it hands over
// finished texts in the product's words, and they are recognised here when they are shown. A test
// compares the lists with the literals of the logic.
#pragma once

#include "views/words/Phrases.h"
#include "views/words/TextKey.h"

#include <QStringView>

#include <array>

namespace trovell {

/// Why a process could not be started: the payload is one of detailTexts.
inline constexpr auto storeOpeningFailure =
    u"Trovell could not open its local workspace store: %@"_key;

/// Error descriptions, details of results and states of services without a payload.
inline constexpr std::array detailTexts{
    u"The workspace file or its folder could not be opened."_key.text,
    u"The workspace file or its folder is read-only."_key.text,
    u"The workspaces are in use by another running copy of Trovell."_key.text,
    u"The workspace file was not made by Trovell."_key.text,
    u"The workspace file was made by a version of Trovell that this version does not know."_key
        .text,
    u"The workspace file is damaged."_key.text,
    u"There is not enough space left on the disk."_key.text,
    u"The disk failed to read or write the workspaces."_key.text,
    u"An entry with the same identity is already stored."_key.text,
    u"There is not enough memory left."_key.text,

    u"That shortcut is already assigned to another workspace."_key.text,
    u"Enter a web address."_key.text,
    u"Enter a valid web address."_key.text,
    u"Trovell supports HTTP and HTTPS links."_key.text,

    u"Allow Accessibility access before capturing or restoring windows."_key.text,
    u"No ordinary application windows were available to capture."_key.text,
    u"Grant Accessibility access to restore saved windows."_key.text,
    u"The application is not running yet."_key.text,
    u"No display is available."_key.text,
    u"A safe matching window was not found yet."_key.text,
    u"macOS refused the window position change."_key.text,
    u"The window did not appear before the timeout."_key.text,

    u"Update checks will be available after the Sparkle feed and EdDSA key are configured."_key
        .text,
};

/// Details with a payload, the better anchored before those that begin with the payload.
inline constexpr std::array detailPatterns{
    storeOpeningFailure.text,
    u"macOS could not open %@."_key.text,
    u"%@ could not be found. Use Locate Again to update it."_key.text,
    phrases::applicationUnavailable.text,
};

inline constexpr std::array noticePatterns{
    phrases::renamed.text,
    phrases::savedAsNewWorkspace.text,
    phrases::savedLayoutCleared.text,
    phrases::layoutUpdated.text,
    phrases::captured.text,
    phrases::created.text,
    phrases::saved.text,
};

/// Names of result lines that are the product's own; all others are the user's.
inline constexpr std::array resultNames{u"Window layout"_key.text};

/// Keys that views only know as the value of a function: names of choices, summaries of a launch,
/// shortcuts.
inline constexpr std::array runTimeKeys{
    u"Light"_key.text,
    u"System"_key.text,
    u"Dark"_key.text,
    u"System Default"_key.text,

    u"Completed %lld actions successfully."_key.text,
    u"Completed %lld actions and restored %lld windows."_key.text,
    u"Completed %lld actions. Review %lld skipped or failed items."_key.text,
    u"Completed %lld actions. %lld windows restored. Review %lld skipped or failed items."_key.text,

    u"⌃⌥1"_key.text,
    u"⌃⌥2"_key.text,
    u"⌃⌥3"_key.text,
    u"⌃⌥4"_key.text,
    u"⌃⌥5"_key.text,
};

} // namespace trovell
