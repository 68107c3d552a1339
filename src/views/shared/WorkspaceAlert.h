// SPDX-License-Identifier: MIT
//
// Alerts that say that something failed. Main thread.
#pragma once

#include "support/Message.h"

class QWidget;

namespace trovell {

class Alert;
struct ViewEnvironment;

/// Shows a title and a reason over the window of `over`, which owns the alert. Returns at once.
Alert* showFailureAlert(const ViewEnvironment& environment, QWidget* over, TextKey<> title,
                        const Message& reason);

/// Shows "Workspace Could Not Be Saved" in the same way.
Alert* showWorkspaceAlert(const ViewEnvironment& environment, QWidget* over, const Message& reason);

} // namespace trovell
