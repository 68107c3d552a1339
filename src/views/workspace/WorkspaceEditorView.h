// The sheet in which a workspace is made from scratch or changed: name, symbol, accent, launch
// items, window layout and shortcut. Everything happens on a working copy until "Save". Main
// thread.
#pragma once

#include "model/WorkspaceChoices.h"
#include "views/ViewEnvironment.h"
#include "views/style/Sheet.h"

#include <QPointer>

namespace trovell {

class TrovellWorkspace;

class WorkspaceEditorView : public Sheet {
    Q_OBJECT

public:
    /// `workspaceOrNull` is the one to edit; null makes a new one on save. `window` is any widget
    /// of the window to cover. Open with `open()`; the sheet deletes itself after it has closed.
    WorkspaceEditorView(const ViewEnvironment& environment, TrovellWorkspace* workspaceOrNull,
                        QWidget* window);
    ~WorkspaceEditorView() override;

Q_SIGNALS:
    /// After it is in the store and before the sheet closes.
    void saved(trovell::TrovellWorkspace* workspace);

private:
    const ViewEnvironment m_environment;
    QPointer<TrovellWorkspace> m_workspace;
};

} // namespace trovell
