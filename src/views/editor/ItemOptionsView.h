// SPDX-License-Identifier: MIT
//
// How one launch item is opened: the arguments and the working folder of an application, the
// application that opens a file, folder or link. Main thread.
#pragma once

#include "editing/EditableWorkspaceItem.h"
#include "views/editor/OpenPanel.h"
#include "views/style/Sheet.h"

namespace trovell {

class PushButton;
class TextField;
class TextLabel;

class ItemOptionsView : public Sheet {
    Q_OBJECT

public:
    ItemOptionsView(const EditingEnvironment& environment, const EditableWorkspaceItem& item,
                    OpenPanel openPanel, QWidget* window);

Q_SIGNALS:
    /// Confirmed, with the item as it is now; the sheet closes after it.
    void confirmed(const trovell::EditableWorkspaceItem& item);

private:
    QWidget* makeForm();
    QWidget* makeApplicationFields();
    QWidget* makeOpenWith();
    TextField* makeField(TextKey<> name, const std::optional<QString>& text);
    PushButton* makeButton(TextKey<> text, void (ItemOptionsView::*act)());
    void chooseFolder();
    void chooseApplication();
    void useDefault();
    /// Reads on a worker what application that desktop file is of, to open with it if it was
    /// chosen, else for its name alone.
    void describe(const QUrl& url, bool isChosen);
    void showOpenWith();
    void confirm();

    const EditingEnvironment m_environment;
    const OpenPanel m_openPanel;
    EditableWorkspaceItem m_item;
    PushButton* m_done;
    // Of an application.
    TextField* m_arguments = nullptr;
    TextField* m_workingFolder = nullptr;
    // Of everything else.
    TextLabel* m_openWith = nullptr;
    QString m_openWithName;
};

} // namespace trovell
