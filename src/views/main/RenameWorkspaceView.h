// SPDX-License-Identifier: MIT
//
// The sheet that gives a workspace another name. Main thread.
#pragma once

#include "views/shared/EditingEnvironment.h"
#include "views/style/Sheet.h"

#include <QPointer>

namespace trovell {

class PushButton;
class TextField;
class TrovellWorkspace;

class RenameWorkspaceView : public Sheet {
    Q_OBJECT

public:
    /// The workspace may be deleted while the sheet is open. `window` is any widget of the window
    /// to cover.
    RenameWorkspaceView(const EditingEnvironment& environment, TrovellWorkspace& workspace,
                        QWidget* window);

Q_SIGNALS:
    /// The name is stored; the sheet closes after this.
    void saved(trovell::TrovellWorkspace* workspace);

private:
    QWidget* buildForm();
    void allowRenaming();
    void save();

    const EditingEnvironment m_environment;
    QPointer<TrovellWorkspace> m_workspace;
    TextField* m_name;
    PushButton* m_rename;
};

} // namespace trovell
