// SPDX-License-Identifier: MIT

#include "views/detail/WorkspaceDetailView.h"

#include "editing/WorkspaceStart.h"
#include "launch/WorkspaceLauncher.h"
#include "model/TrovellWorkspace.h"
#include "views/detail/AccessibilityBanner.h"
#include "views/detail/LaunchReportBanner.h"
#include "views/detail/LayoutPreview.h"
#include "views/detail/WorkspaceDetailHeader.h"
#include "views/detail/WorkspaceItemsCard.h"
#include "views/detail/WorkspaceNoticeBanner.h"
#include "views/style/Divider.h"
#include "views/style/Layouts.h"
#include "views/style/ScrollArea.h"
#include "windows/AccessibilityPermissionManager.h"

#include <QGuiApplication>
#include <QScrollBar>
#include <QTimer>

namespace trovell {

namespace {

constexpr int margin = 24;
constexpr int blockGap = 20;
constexpr int cardGap = 16;
// In the window's usual size the items are 541 wide and the layout 330.
constexpr int itemsShare = 541;
constexpr int previewShare = 330;
constexpr int narrowestPreview = 270;
constexpr int widestPreview = 400;

} // namespace

WorkspaceDetailView::WorkspaceDetailView(const DetailEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_scrollArea(new ScrollArea),
      m_header(new WorkspaceDetailHeader(environment)),
      m_noticeBanner(new WorkspaceNoticeBanner(environment)),
      m_reportBanner(new LaunchReportBanner(environment)),
      m_accessibilityBanner(new AccessibilityBanner(environment, environment.accessibility)),
      m_items(new WorkspaceItemsCard(environment)), m_preview(new LayoutPreview(environment))
{
    m_scrollArea->setContent(buildColumn());
    new ColumnLayout(this, 0, {m_scrollArea});
    connectActions();
    followServices();
    setWorkspace(nullptr);
}

QWidget* WorkspaceDetailView::buildColumn()
{
    m_preview->setMinimumWidth(narrowestPreview);
    m_preview->setMaximumWidth(widestPreview);
    auto* cards = new RowLayout(
        cardGap, {{m_items, itemsShare, Qt::AlignTop}, {m_preview, previewShare, Qt::AlignTop}});

    auto* content = new QWidget;
    new ColumnLayout(content, allAround(margin), blockGap,
                     {m_header, m_noticeBanner, m_reportBanner, m_accessibilityBanner,
                      new Divider(m_environment.visual), cards, Stretch{}});
    return content;
}

void WorkspaceDetailView::connectActions()
{
    connect(m_header, &WorkspaceDetailHeader::chosen, this, &WorkspaceDetailView::choose);
    const auto putBack = [this] { m_environment.launcher.putWindowsBack(); };
    connect(m_reportBanner, &LaunchReportBanner::putBackRequested, this, putBack);
    connect(m_header, &WorkspaceDetailHeader::putBackRequested, this, putBack);
    connect(m_items, &WorkspaceItemsCard::editRequested, this,
            [this] { Q_EMIT chosen(WorkspaceAction::edit); });
    connect(m_noticeBanner, &WorkspaceNoticeBanner::dismissed, this,
            &WorkspaceDetailView::noticeDismissed);
}

void WorkspaceDetailView::followServices()
{
    const WorkspaceLauncher& launcher = m_environment.launcher;
    const AccessibilityPermissionManager& accessibility = m_environment.accessibility;
    m_header->setTrusted(accessibility.isTrusted());
    connect(&launcher, &WorkspaceLauncher::isLaunchingChanged, this,
            &WorkspaceDetailView::showLaunch);
    connect(m_header, &WorkspaceDetailHeader::cancelRequested, &m_environment.launcher,
            &WorkspaceLauncher::cancel);
    connect(&launcher, &WorkspaceLauncher::latestReportChanged, this, [this] {
        showReport();
        if (m_reportBanner->isVisible())
            m_reportBanner->announceReport();
    });
    connect(&accessibility, &AccessibilityPermissionManager::isTrustedChanged, this,
            [this](bool isTrusted) {
                m_header->setTrusted(isTrusted);
                showPermission();
            });
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive)
                    m_items->checkMissing();
            });
}

void WorkspaceDetailView::showLaunch()
{
    using enum WorkspaceDetailHeader::Launching;
    const std::optional<QUuid> launching = m_environment.launcher.launchingWorkspaceID();
    const bool isThis = launching && m_workspace && m_workspace->id() == *launching;
    const bool canPutBack = m_environment.launcher.canPutWindowsBack();
    m_reportBanner->setCanPutBack(canPutBack);
    m_header->setCanPutBack(canPutBack);
    m_header->setLaunching(!launching ? nothing : isThis ? thisWorkspace : anotherWorkspace);
}

void WorkspaceDetailView::setWorkspace(TrovellWorkspace* workspace)
{
    if (m_workspace)
        disconnect(m_workspace, nullptr, this, nullptr);
    m_workspace = workspace;
    showLaunch();
    m_reportBanner->setReport(std::nullopt);
    m_scrollArea->verticalScrollBar()->setValue(0);
    if (workspace) {
        connect(workspace, &TrovellWorkspace::contentChanged, this,
                &WorkspaceDetailView::scheduleShowing);
        connect(workspace, &QObject::destroyed, this, &WorkspaceDetailView::scheduleShowing);
    }
    showWorkspace();
}

void WorkspaceDetailView::setNotice(const Message& notice)
{
    m_noticeBanner->setMessage(notice);
}

/// An edit writes every record of the workspace, one after the other.
void WorkspaceDetailView::scheduleShowing()
{
    if (!std::exchange(m_isShowingScheduled, true))
        QTimer::singleShot(0, this, &WorkspaceDetailView::showWorkspace);
}

void WorkspaceDetailView::showWorkspace()
{
    m_isShowingScheduled = false;
    m_scrollArea->setVisible(m_workspace != nullptr);
    if (!m_workspace)
        return;
    m_header->showWorkspace(*m_workspace);
    showReport();
    showPermission();
    m_items->setItems(m_workspace->sortedItems());
    const QList<WindowPlacement*> placements = m_workspace->sortedPlacements();
    m_preview->setVisible(!placements.isEmpty());
    m_preview->setPlacements(placements);
}

void WorkspaceDetailView::showReport()
{
    const WorkspaceLauncher& launcher = m_environment.launcher;
    const bool isAboutThis = m_workspace && launcher.latestWorkspaceID() == m_workspace->id();
    m_reportBanner->setReport(isAboutThis ? launcher.latestReport() : std::nullopt);
}

void WorkspaceDetailView::showPermission()
{
    const bool isTrusted = m_environment.accessibility.isTrusted();
    m_accessibilityBanner->setShown(!isTrusted && m_workspace && m_workspace->placementCount() > 0);
}

void WorkspaceDetailView::choose(WorkspaceAction action)
{
    if (action != WorkspaceAction::start)
        Q_EMIT chosen(action);
    else if (m_workspace)
        m_environment.startWorkspace(*m_workspace);
}

void WorkspaceDetailView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_items->checkMissing();
}

} // namespace trovell
