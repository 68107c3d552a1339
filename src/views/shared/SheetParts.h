// SPDX-License-Identifier: MIT
//
// What several sheets have in common. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

class QWidget;

namespace trovell {

class PushButton;
class Sheet;
class TextLabel;

/// "Cancel", which leaves the sheet.
[[nodiscard]] PushButton* makeCancelButton(const ViewEnvironment& environment, Sheet& sheet);

/// A line of text at the left, "Cancel" and the button that confirms at the right.
[[nodiscard]] QWidget* makeSheetFooter(const ViewEnvironment& environment, Sheet& sheet,
                                       TextLabel* text, PushButton* confirm);

/// Names the sheet, for assistive tools too.
void setTitle(Sheet& sheet, const QString& title);

} // namespace trovell
