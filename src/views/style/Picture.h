// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Accessibility.h"

#include <QWidget>

namespace trovell {

/// A picture that paints itself. With an accessible name it is a graphic to assistive tools,
/// without one it is hidden from them.
class Picture : public QWidget {
    Q_OBJECT

public:
    explicit Picture(QWidget* parent = nullptr) : QWidget(parent)
    {
        setAccessibleRole(*this, QAccessible::Graphic);
    }
};

} // namespace trovell
