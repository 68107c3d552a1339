// SPDX-License-Identifier: MIT
//
// What the detail column shows while there are no workspaces. Main thread.
#pragma once

#include <QWidget>

namespace trovell {

struct ViewEnvironment;

class WorkspaceEmptyView : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceEmptyView(const ViewEnvironment& environment, QWidget* parent = nullptr);

Q_SIGNALS:
    void captureRequested();
    void createRequested();
};

} // namespace trovell
