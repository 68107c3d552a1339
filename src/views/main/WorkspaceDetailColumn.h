// SPDX-License-Identifier: MIT
//
// The right-hand side of the main window: a toolbar over the selected workspace, or over what is
// shown while there is none. Main thread.
#pragma once

#include "views/main/MainEnvironment.h"

#include <QWidget>

class QStackedLayout;

namespace trovell {

class Divider;
class TrovellWorkspace;
class WorkspaceDetailView;
class WorkspaceEmptyView;

class WorkspaceDetailColumn : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceDetailColumn(const MainEnvironment& environment, QWidget* parent = nullptr);

    /// Null shows the empty state. `notice` is one about the workspace, in the product's words.
    void show(TrovellWorkspace* workspace, const Message& notice);

    [[nodiscard]] WorkspaceDetailView* detail() const { return m_detail; }

Q_SIGNALS:
    void createRequested();
    void captureRequested();

private:
    QWidget* buildToolbar();
    void showScrolled();

    const MainEnvironment m_environment;
    /// Under the toolbar while the content is scrolled.
    Divider* m_hairline;
    QStackedLayout* m_pages;
    WorkspaceDetailView* m_detail;
    WorkspaceEmptyView* m_empty;
};

} // namespace trovell
