// SPDX-License-Identifier: MIT
//
// The keys of all sentences that are put together from values, and of the few texts that stand in
// several places. The English of each reads exactly as
// the product's rule puts it together; other languages may order the values differently with
// "%2$@" and "%1$lld".
#pragma once

#include "support/TextKey.h"

namespace trovell::phrases {

// The list of workspaces and the head of the detail pane.
inline constexpr auto itemCount = u"%lld items"_key;
inline constexpr auto activeItemsAndSavedWindows = u"%lld active items • %lld saved windows"_key;

// Notices, with the name of the workspace.
inline constexpr auto saved = u"%@ saved."_key;
inline constexpr auto created = u"%@ created."_key;
inline constexpr auto renamed = u"Workspace renamed to %@."_key;
inline constexpr auto savedLayoutCleared = u"%@ saved layout cleared."_key;
inline constexpr auto layoutUpdated = u"%@ layout updated."_key;
inline constexpr auto captured = u"%@ captured."_key;
inline constexpr auto savedAsNewWorkspace = u"%@ saved as a new workspace."_key;

// The editor.
inline constexpr auto removeItem = u"Remove %@"_key;
inline constexpr auto newlyCapturedWindows = u"%lld newly captured windows."_key;
inline constexpr auto savedWindows = u"%lld saved windows."_key;
inline constexpr auto desktopNumber = u"Desktop %lld"_key;
inline constexpr auto optionsOf = u"Options of %@"_key;
inline constexpr auto opensWith = u"Opens with %@"_key;

// The capture sheet, with the name of the workspace or of the application.
inline constexpr auto chooseWindowsOfLayout =
    u"Choose the open windows to save as %@'s layout."_key;
inline constexpr auto captureWithoutChanging =
    u"Capture the current arrangement without changing %@."_key;
inline constexpr auto applicationsWillBeSaved = u"%lld applications will be saved."_key;
inline constexpr auto windowsSelectedAndPositionsKept =
    u"%lld windows selected • %lld previous positions kept"_key;
inline constexpr auto selectedCount = u"%lld selected"_key;
inline constexpr auto ordinaryWindowsDetected = u"%lld ordinary windows detected"_key;
inline constexpr auto notDetected = u"%@ • Not detected"_key;
inline constexpr auto keepSavedPositionFor = u"Keep saved position for %@"_key;

// The capture review.
inline constexpr auto windowsSelected = u"%lld windows selected"_key;

// The settings; the number of seconds is a NumberArgument::plain.
inline constexpr auto currentTimeout = u"Current timeout: %lld seconds"_key;
inline constexpr auto version = u"Version %@"_key;

// The guide of the first run.
inline constexpr auto stepOfSteps = u"Step %lld of %lld"_key;

// The update window, with the version or with sizes such as "12.3 MB".
inline constexpr auto updateAvailable = u"Trovell %@ is available"_key;
inline constexpr auto updateSize = u"The download has %@."_key;
inline constexpr auto downloadingUpdate = u"Downloading Trovell %@…"_key;
inline constexpr auto receivedOfSize = u"%@ of %@"_key;
inline constexpr auto updateReady = u"Trovell %@ is ready to install"_key;

// Texts that name the product's first platform; the English table says them for this one. The motto
// is a value of the configuration.
inline constexpr auto motto = u"Your Mac, ready in one click."_key;
inline constexpr auto workspaceStaysHere = u"Your workspace stays on your Mac."_key;
inline constexpr auto workspaceDataStaysHere = u"Workspace data stays on this Mac"_key;
inline constexpr auto shortcutCaption =
    u"Shortcuts use Control–Option and work globally without Input Monitoring."_key;

// Alerts without a reason of their own.
inline constexpr auto unknownError = u"Unknown error"_key;
inline constexpr auto couldNotBeSaved = u"Workspace Could Not Be Saved"_key;

} // namespace trovell::phrases
