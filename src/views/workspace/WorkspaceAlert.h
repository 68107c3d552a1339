// The one alert that says that something could not be saved. Main thread.
#pragma once

#include <QString>

class QWidget;

namespace trovell {

class Alert;
struct ViewEnvironment;

/// Shows "Workspace Could Not Be Saved" over the window of `over`, with a reason in the product's
/// words; the window owns it. Returns at once.
Alert* showWorkspaceAlert(const ViewEnvironment& environment, QWidget* over, const QString& reason);

} // namespace trovell
