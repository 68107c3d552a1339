// SPDX-License-Identifier: MIT

#pragma once

#include "views/app/SettingsEnvironment.h"

namespace trovell {

class Switch;

/// One of the preferences that are on or off.
struct BooleanPreference {
    bool (AppPreferences::*value)() const;
    void (AppPreferences::*setValue)(bool);
    void (AppPreferences::*changed)();
};

/// A switch for `preference` that follows it, wherever it is changed. Main thread.
[[nodiscard]] Switch* preferenceSwitch(const SettingsEnvironment& environment, TextKey<> label,
                                       const BooleanPreference& preference);

/// Keeps the label of a switch at the text of a key.
void renderLabel(const Localization& words, Switch* control, TextKey<> label);

} // namespace trovell
