#pragma once

#include <QWidget>

namespace trovell {

/// Several parts that belong together under one accessible name.
class Group : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
};

} // namespace trovell
