// SPDX-License-Identifier: MIT
//
// The main window's view of the selected workspace: what it holds, its main actions and what there
// is to say about it. Owns no data and writes nothing; all but starting is asked of the window.
// Main thread.
#pragma once

#include "views/detail/DetailEnvironment.h"
#include "views/shared/WorkspaceAction.h"

#include <QPointer>
#include <QWidget>

#include <optional>

namespace trovell {

class AccessibilityBanner;
class LaunchReportBanner;
class LayoutPreview;
class ScrollArea;
class TrovellWorkspace;
class WorkspaceDetailHeader;
class WorkspaceItemsCard;
class WorkspaceNoticeBanner;

class WorkspaceDetailView : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceDetailView(const DetailEnvironment& environment, QWidget* parent = nullptr);

    /// May be null, which shows nothing. Follows the workspace, and shows nothing once it is gone.
    void setWorkspace(TrovellWorkspace* workspace);

    /// About the workspace shown, or none.
    void setNotice(const Message& notice);

    /// For whoever wants to know how far it is scrolled; owned by the view.
    [[nodiscard]] ScrollArea* scrollArea() const { return m_scrollArea; }

Q_SIGNALS:
    void noticeDismissed();
    /// All but starting, which the view does itself.
    void chosen(trovell::WorkspaceAction action);

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QWidget* buildColumn();
    void connectActions();
    void showLaunch();
    void followServices();
    void scheduleShowing();
    void showWorkspace();
    void showReport();
    void showPermission();
    void choose(WorkspaceAction action);

    DetailEnvironment m_environment;
    QPointer<TrovellWorkspace> m_workspace;
    bool m_isShowingScheduled = false;

    ScrollArea* m_scrollArea;
    WorkspaceDetailHeader* m_header;
    WorkspaceNoticeBanner* m_noticeBanner;
    LaunchReportBanner* m_reportBanner;
    AccessibilityBanner* m_accessibilityBanner;
    WorkspaceItemsCard* m_items;
    LayoutPreview* m_preview;
};

} // namespace trovell
