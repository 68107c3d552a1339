// SPDX-License-Identifier: MIT
//
// What every view is given; nothing of it is created or owned by a view. Main thread.
#pragma once

#include "views/style/VisualStyle.h"
#include "views/words/Localization.h"
#include "views/words/Phrases.h"

namespace trovell {

class ApplicationIcons;

/// References to things that outlive every window. Views copy it. What a surface uses besides
/// stands in a structure of its own that begins with this one.
struct ViewEnvironment {
    VisualStyle& visual;
    Localization& words;
    ApplicationIcons& icons;
};

} // namespace trovell
