// SPDX-License-Identifier: MIT
//
// The head of the detail view: the workspace's name and counts, and what can be done with it. Main
// thread.
#pragma once

#include "views/shared/ViewEnvironment.h"
#include "views/shared/WorkspaceAction.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

class QAction;
class QMenu;

namespace trovell {

class ActionButton;
class SymbolButton;
class SymbolView;
class TextLabel;
class TrovellWorkspace;

class WorkspaceDetailHeader : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceDetailHeader(const ViewEnvironment& environment, QWidget* parent = nullptr);

    void showWorkspace(const TrovellWorkspace& workspace);
    /// What is being started. Starting another workspace has to wait for that.
    enum class Launching { nothing, thisWorkspace, anotherWorkspace };
    void setLaunching(Launching launching);
    void setTrusted(bool isTrusted);
    /// Offers to take back where windows were brought.
    void setCanPutBack(bool canPutBack);

Q_SIGNALS:
    void chosen(trovell::WorkspaceAction action);
    /// The workspace shown is being started.
    void cancelRequested();
    void putBackRequested();

private:
    QWidget* buildTexts();
    void buildMenu();
    QAction* addMenuAction(QMenu& menu, TextKey<> key, WorkspaceAction action);
    void showTexts();
    void updateStart();
    void startOrCancel();

    ViewEnvironment m_environment;
    bool m_hasItems = false;
    Launching m_launching = Launching::nothing;
    QElapsedTimer m_sinceLaunch;
    bool m_isTrusted = false;
    qint64 m_activeItemCount = 0;
    qint64 m_savedWindowCount = 0;
    /// What the keyboard focus went to when the start button was disabled under it.
    QPointer<QWidget> m_focusSubstitute;

    SymbolView* m_tile;
    TextLabel* m_name;
    TextLabel* m_counts;
    ActionButton* m_saveLayout;
    ActionButton* m_start;
    SymbolButton* m_menuButton;
    QAction* m_clearLayout = nullptr;
    QAction* m_putBack = nullptr;
};

} // namespace trovell
