// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace trovell {

/// A picture that paints itself. With an accessible name it is a graphic to assistive tools,
/// without one it is hidden from them.
class Picture : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
};

} // namespace trovell
