// SPDX-License-Identifier: MIT
//
// What the items card shows of a workspace without items. Main thread.
#pragma once

#include <QWidget>

namespace trovell {

struct ViewEnvironment;

class NoItemsView : public QWidget {
    Q_OBJECT

public:
    explicit NoItemsView(const ViewEnvironment& environment, QWidget* parent = nullptr);
};

} // namespace trovell
