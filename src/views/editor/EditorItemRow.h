// SPDX-License-Identifier: MIT
//
// One launch item in the editor: drag grip, check box, symbol, name and address, "Locate Again",
// how it is opened, and the bin. Main thread.
#pragma once

#include "editing/EditableWorkspaceItem.h"
#include "views/shared/ViewEnvironment.h"
#include "views/style/Group.h"

class QCheckBox;

namespace trovell {

class LinkButton;
class SymbolButton;
class SymbolView;
class TextLabel;

class EditorItemRow : public ListRow {
    Q_OBJECT

public:
    EditorItemRow(const ViewEnvironment& environment, const EditableWorkspaceItem& item,
                  QWidget* parent);

    /// Height of every row, in logical pixels before the font factor.
    static constexpr int rowHeight = 52;

    [[nodiscard]] const QUuid& id() const { return m_id; }
    /// Shows the item anew, and looks for its resource.
    void setItem(const EditableWorkspaceItem& item);

    /// Puts the row's controls behind `previous` in the tab order and returns the last of them.
    QWidget* chainAfter(QWidget* previous) const;
    [[nodiscard]] QWidget* lastControl() const;
    /// Where the focus goes when a neighbour was removed.
    void focusRemoveButton() const;

Q_SIGNALS:
    void enabledChanged(bool isEnabled);
    void locateAgainRequested();
    void optionsRequested();
    void removeRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void buildLayout();
    void showWords();
    void checkMissing(const EditableWorkspaceItem& item);

    const ViewEnvironment m_environment;
    QUuid m_id;
    QString m_displayName;
    QString m_urlString;
    SymbolView* m_grip;
    QCheckBox* m_isEnabled;
    SymbolView* m_symbol;
    TextLabel* m_name;
    TextLabel* m_url;
    LinkButton* m_locateAgain;
    SymbolButton* m_options;
    SymbolButton* m_remove;
};

} // namespace trovell
