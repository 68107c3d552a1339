// SPDX-License-Identifier: MIT
//
// What the update window says in each state. Main thread.
#pragma once

#include "services/update/UpdateState.h"
#include "views/words/Localization.h"

namespace trovell {

/// In the user's language; what a state does not show is empty.
struct UpdateTexts {
    QString title;
    QString text;
    /// The button that ends the window, and with it what runs.
    QString close;
    /// The button of the next step.
    QString next;
};

[[nodiscard]] UpdateTexts updateTexts(const UpdateState& state, const Localization& words);

} // namespace trovell
