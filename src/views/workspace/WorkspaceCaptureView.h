// Turns what is open right now into a workspace, or into the window layout of one. Main thread.
#pragma once

#include "views/style/Sheet.h"
#include "views/workspace/CapturePurpose.h"

namespace trovell {

class TrovellWorkspace;
struct ViewEnvironment;

/// Reads the open windows as soon as it is opened, lets the user choose among them and saves.
///
///     auto* sheet = new WorkspaceCaptureView(environment, CapturePurpose::create, nullptr, this);
///     connect(sheet, &WorkspaceCaptureView::saved, this, …);
///     sheet->open();
class WorkspaceCaptureView : public Sheet {
    Q_OBJECT

public:
    /// `workspaceOrNull` is the one to update or to start from; null for `create`. It may be
    /// deleted while the sheet is open. `window` is any widget of the window to cover.
    WorkspaceCaptureView(const ViewEnvironment& environment, CapturePurpose purpose,
                         TrovellWorkspace* workspaceOrNull, QWidget* window);

Q_SIGNALS:
    /// The workspace is stored; the sheet closes after this. `notice` is one line about it in the
    /// product's own words, see `Localization::shownNotice`.
    void saved(trovell::TrovellWorkspace* workspace, const QString& notice);
};

} // namespace trovell
