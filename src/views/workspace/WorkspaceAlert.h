// The one alert in which the sheets say what went wrong. Main thread.
#pragma once

#include <QString>

class QWidget;

namespace trovell {

struct ViewEnvironment;

/// Shows "Workspace Could Not Be Saved" over the window of `over`, with a reason in the product's
/// words. Returns at once.
void showWorkspaceAlert(const ViewEnvironment& environment, QWidget* over, const QString& reason);

} // namespace trovell
