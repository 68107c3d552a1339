// SPDX-License-Identifier: MIT

#pragma once

class QAbstractButton;
class QWidget;

namespace trovell {

/// Makes a click on `label` a click on `button`, as for the row a check box belongs to.
void forwardClicks(QWidget& label, QAbstractButton& button);

} // namespace trovell
