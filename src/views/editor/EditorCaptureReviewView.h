// SPDX-License-Identifier: MIT
//
// The choice among windows that the workspace editor has captured. Main thread.
#pragma once

#include "editing/CaptureDraft.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/Sheet.h"

namespace trovell {

class PushButton;
class TextLabel;

/// Sets the `isIncluded` flags of applications and windows as the user switches them. Cancelling
/// keeps what was switched, and stores nothing.
class EditorCaptureReviewView : public Sheet {
    Q_OBJECT

public:
    /// The lists are edited in place and outlive the sheet; nobody else changes them while it is
    /// open.
    EditorCaptureReviewView(const ViewEnvironment& environment,
                            QList<CapturedApplication>& applications,
                            QList<RetainedPlacementDraft>& retainedPlacements, QWidget* window);

Q_SIGNALS:
    /// The user has confirmed; the sheet closes after this.
    void useSelectedWindows();

private:
    QWidget* makeHeader();
    QWidget* makeBody();
    QWidget* makeFooter();
    void showSelectedCount();
    void useSelection();

    const ViewEnvironment m_environment;
    QList<CapturedApplication>& m_applications;
    QList<RetainedPlacementDraft>& m_retainedPlacements;
    TextLabel* m_selectedCount = nullptr;
    PushButton* m_useButton = nullptr;
};

} // namespace trovell
