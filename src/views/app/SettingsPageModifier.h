// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/ScrollArea.h"

namespace trovell {

/// The room around the content of a settings page: at most 540 wide, 34 away from the sides and 26
/// from top and bottom, at the top of all the space there is. Scrolls where that is not enough.
/// Main thread.
class SettingsPageModifier : public ScrollArea {
    Q_OBJECT

public:
    /// Takes ownership.
    explicit SettingsPageModifier(QWidget* content, QWidget* parent = nullptr);
};

} // namespace trovell
