// SPDX-License-Identifier: MIT
//
// The plus that offers the two ways to a new workspace, above the sidebar and in the toolbar. Main
// thread.
#pragma once

#include "views/style/PushButton.h"

namespace trovell {

struct ViewEnvironment;

class AddWorkspaceButton : public SymbolButton {
    Q_OBJECT

public:
    explicit AddWorkspaceButton(const ViewEnvironment& environment, QWidget* parent = nullptr);

Q_SIGNALS:
    void createRequested();
    void captureRequested();
};

} // namespace trovell
