// SPDX-License-Identifier: MIT
//
// One launch item in the detail view. Main thread.
#pragma once

#include "model/WorkspaceItem.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/Group.h"

namespace trovell {

class ResourceIcon;
class SymbolView;
class TextLabel;

/// Shows one item after another if it is told to: lists keep their rows.
class WorkspaceItemRow : public Group {
    Q_OBJECT

public:
    explicit WorkspaceItemRow(const ViewEnvironment& environment, QWidget* parent = nullptr);

    void setItem(const WorkspaceItemValues& item);
    /// Whether a rule parts the row from the next one.
    void setDivided(bool isDivided);

    /// Asks a worker whether the item's resource is still where the item says, and marks the row if
    /// not. Calls while that goes on lead to one more question after it.
    void checkMissing();

    /// In the present language.
    void showTexts();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] WorkspaceItemType type() const { return workspaceItemType(m_item.typeRawValue); }
    [[nodiscard]] bool isFile() const { return type() != WorkspaceItemType::webLink; }
    void acceptMissing(const QString& urlString, bool isMissing);

    ViewEnvironment m_environment;
    WorkspaceItemValues m_item;
    bool m_isDivided = false;
    bool m_isChecking = false;
    bool m_isCheckDue = false;

    ResourceIcon* m_icon;
    TextLabel* m_name;
    TextLabel* m_typeLabel;
    TextLabel* m_disabled;
    SymbolView* m_missing;
};

} // namespace trovell
