// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/Accessibility.h"

#include <QWidget>

namespace trovell {

/// Several parts that belong together under one accessible name.
class Group : public QWidget {
    Q_OBJECT

public:
    explicit Group(QWidget* parent = nullptr, QAccessible::Role role = QAccessible::Grouping)
        : QWidget(parent)
    {
        setAccessibleRole(*this, role);
    }
};

/// A row of several parts under the name of what it stands for.
class ListRow : public Group {
    Q_OBJECT

public:
    explicit ListRow(QWidget* parent = nullptr) : Group(parent, QAccessible::ListItem) {}
};

} // namespace trovell
