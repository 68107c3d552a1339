// SPDX-License-Identifier: MIT
//
// The sheet in which a workspace is made from scratch or changed: name, symbol, accent, launch
// items, window layout and shortcut. Everything happens on a working copy until "Save". Main
// thread.
#pragma once

#include "editing/WorkspaceEdits.h"
#include "views/editor/OpenPanel.h"
#include "views/shared/EditingEnvironment.h"
#include "views/style/Sheet.h"

namespace trovell {

class EditorItemsSection;
class EditorLayoutSection;
class PushButton;
class TextField;
class WorkspaceChoiceControls;

class WorkspaceEditorView : public Sheet {
    Q_OBJECT

public:
    /// `workspaceOrNull` is the one to edit; null makes a new one on save. `window` is any widget
    /// of the window to cover. `openPanel` is the desktop's unless given. Open with `open()`; the
    /// sheet deletes itself after it has closed.
    WorkspaceEditorView(const EditingEnvironment& environment, TrovellWorkspace* workspaceOrNull,
                        QWidget* window, OpenPanel openPanel = {});
    ~WorkspaceEditorView() override;

Q_SIGNALS:
    /// After it is in the store and before the sheet closes.
    void saved(trovell::TrovellWorkspace* workspace);

private:
    QWidget* makeHeader();
    QWidget* makeBody();
    QWidget* makeBasics();
    QWidget* makeShortcut();
    void showTitle();
    void showSaveState();
    void save();
    [[nodiscard]] WorkspaceEdits edits() const;
    void showError(const Message& reason);

    const EditingEnvironment m_environment;
    const EditedWorkspace m_target;
    PushButton* m_save;
    TextField* m_name;
    WorkspaceChoiceControls* m_choices;
    EditorItemsSection* m_items;
    EditorLayoutSection* m_layout;
    bool m_savesAfterAdding = false;
};

} // namespace trovell
