// SPDX-License-Identifier: MIT
//
// The launch items of the editor: the list, and how items are added and found again. Main thread.
#pragma once

#include "views/editor/EditorItemList.h"
#include "views/editor/OpenPanel.h"

class QMenu;

namespace trovell {

class PushButton;
class TrovellCardModifier;

class EditorItemsSection : public QWidget {
    Q_OBJECT

public:
    EditorItemsSection(const EditingEnvironment& environment,
                       const QList<EditableWorkspaceItem>& items, OpenPanel openPanel,
                       QWidget* parent = nullptr);

    [[nodiscard]] const QList<EditableWorkspaceItem>& items() const { return m_list->items(); }
    /// Whether chosen resources are still being looked at and will be added.
    [[nodiscard]] bool isAdding() const { return m_pendingCount > 0; }

Q_SIGNALS:
    /// Nothing is being looked at any more.
    void addingFinished();

private:
    using Use = std::function<void(const QList<EditableWorkspaceItem>&)>;

    QWidget* makeHeader();
    QMenu* makeAddMenu();
    void showCard();
    void addFromPanel(WorkspaceItemType type);
    void addWebLink();
    void locateAgain(const QUuid& id);
    void editOptions(const QUuid& id);
    /// Looks at the resources on a worker.
    void look(const QList<QUrl>& urls, WorkspaceItemType type, const Use& use);

    const EditingEnvironment m_environment;
    const OpenPanel m_openPanel;
    PushButton* m_addButton;
    TrovellCardModifier* m_card;
    EditorItemList* m_list;
    /// What was typed and not added.
    QString m_webLinkText;
    int m_pendingCount = 0;
};

} // namespace trovell
