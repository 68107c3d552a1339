// The choice among windows that the workspace editor has captured. Main thread.
#pragma once

#include "views/style/Sheet.h"
#include "windows/CapturedApplication.h"

namespace trovell {

struct ViewEnvironment;

/// Sets the `isIncluded` flags of applications and windows as the user switches them. Cancelling
/// keeps what was switched, and stores nothing.
class EditorCaptureReviewView : public Sheet {
    Q_OBJECT

public:
    /// `applications` is edited in place and outlives the sheet; nobody else changes it while the
    /// sheet is open.
    EditorCaptureReviewView(const ViewEnvironment& environment,
                            QList<CapturedApplication>& applications, QWidget* window);

Q_SIGNALS:
    /// The user has confirmed; the sheet closes after this.
    void useSelectedWindows();
};

} // namespace trovell
