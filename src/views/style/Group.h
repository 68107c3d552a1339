// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace trovell {

/// Several parts that belong together under one accessible name.
class Group : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
};

/// Rows one below the other, each a ListRow.
class ListGroup : public Group {
    Q_OBJECT

public:
    using Group::Group;
};

/// A row of several parts under the name of what it stands for.
class ListRow : public Group {
    Q_OBJECT

public:
    using Group::Group;
};

} // namespace trovell
