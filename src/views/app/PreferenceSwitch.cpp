// SPDX-License-Identifier: MIT

#include "views/app/PreferenceSwitch.h"

#include "preferences/AppPreferences.h"
#include "views/style/Switch.h"

namespace trovell {

Switch* preferenceSwitch(const SettingsEnvironment& environment, TextKey<> label,
                         const BooleanPreference& preference)
{
    auto* control = new Switch(environment.visual, {});
    renderLabel(environment.words, control, label);
    AppPreferences* preferences = &environment.preferences;
    const auto show = [control, preferences, preference] {
        control->setChecked((preferences->*preference.value)());
    };
    show();
    QObject::connect(preferences, preference.changed, control, show);
    // Showing a change made elsewhere does not write it once more.
    QObject::connect(control, &QAbstractButton::toggled, preferences,
                     [preferences, preference](bool isOn) {
                         if ((preferences->*preference.value)() != isOn)
                             (preferences->*preference.setValue)(isOn);
                     });
    return control;
}

void renderLabel(const Localization& words, Switch* control, TextKey<> label)
{
    words.render(control, [&words, control, label] { control->setLabel(words.text(label)); });
}

} // namespace trovell
