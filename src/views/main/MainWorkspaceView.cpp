// SPDX-License-Identifier: MIT

#include "views/main/MainWorkspaceView.h"

#include "editing/WorkspaceCommands.h"
#include "editing/WorkspaceStart.h"
#include "model/StoreContext.h"
#include "model/WorkspaceQuery.h"
#include "services/GlobalHotKeyManager.h"
#include "views/capture/WorkspaceCaptureView.h"
#include "views/detail/WorkspaceDetailView.h"
#include "views/editor/WorkspaceEditorView.h"
#include "views/main/RenameWorkspaceView.h"
#include "views/main/SidebarSplitter.h"
#include "views/main/WorkspaceDetailColumn.h"
#include "views/main/WorkspaceSidebarList.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/Alert.h"
#include "views/style/Layouts.h"

#include <utility>

namespace trovell {

using SheetKind = WorkspaceSheetRequest::Kind;
using AlertKind = WorkspaceAlertRequest::Kind;

MainWorkspaceView::MainWorkspaceView(const MainEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_sidebar(new WorkspaceSidebar(environment)),
      m_column(new WorkspaceDetailColumn(environment))
{
    new ColumnLayout(this, 0, {new SidebarSplitter(m_sidebar, m_column)});
    connectSidebar();
    connectDetail();
    connectStore();
}

void MainWorkspaceView::connectSidebar()
{
    connect(m_sidebar, &WorkspaceSidebar::selected, this, &MainWorkspaceView::select);
    connect(m_sidebar, &WorkspaceSidebar::chosen, this, &MainWorkspaceView::perform);
    connect(m_sidebar, &WorkspaceSidebar::settingsRequested, this,
            &MainWorkspaceView::settingsRequested);
    connect(m_sidebar, &WorkspaceSidebar::dropped, this,
            [this](const QUuid& dragged, const QUuid& target) {
                succeeded(moveWorkspace(m_environment.context, dragged, target));
            });
    connect(m_sidebar, &WorkspaceSidebar::moveRequested, this, [this](const QUuid& id, int step) {
        succeeded(moveWorkspaceBy(m_environment.context, id, step));
    });
    const auto create = [this] { present({.kind = SheetKind::newEmpty}); };
    const auto capture = [this] { present({.kind = SheetKind::captureCurrent}); };
    connect(m_sidebar, &WorkspaceSidebar::createRequested, this, create);
    connect(m_sidebar, &WorkspaceSidebar::captureRequested, this, capture);
    connect(m_column, &WorkspaceDetailColumn::createRequested, this, create);
    connect(m_column, &WorkspaceDetailColumn::captureRequested, this, capture);
}

void MainWorkspaceView::connectDetail()
{
    const WorkspaceDetailView* detail = m_column->detail();
    connect(detail, &WorkspaceDetailView::chosen, this,
            [this](WorkspaceAction action) { perform(action, m_selection); });
    connect(detail, &WorkspaceDetailView::noticeDismissed, this, [this] {
        m_notice.reset();
        refresh();
    });
}

void MainWorkspaceView::connectStore()
{
    connect(&m_environment.workspaces, &WorkspaceQuery::listChanged, this, [this] {
        if (m_hasAppeared)
            reconcileSelection();
    });
    connect(&m_environment.workspaces, &WorkspaceQuery::updatedAtChanged, this, [this] {
        if (m_hasAppeared)
            registerHotKeys();
    });
    connect(&m_environment.context, &StoreContext::automaticSaveFailed, this,
            &MainWorkspaceView::reportInBackground);
    // Read on first use, which may be in the middle of drawing or of a write that will tell.
    connect(&m_environment.context, &StoreContext::readFailed, this,
            &MainWorkspaceView::reportInBackground, Qt::QueuedConnection);
}

void MainWorkspaceView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (std::exchange(m_hasAppeared, true))
        return;
    reconcileSelection();
    registerHotKeys();
    m_sidebar->list()->setFocus(Qt::OtherFocusReason);
}

void MainWorkspaceView::select(const QUuid& id)
{
    m_selection = id;
    refresh();
}

void MainWorkspaceView::reconcileSelection()
{
    if (!m_environment.workspaces.find(m_selection)) {
        const QList<TrovellWorkspace*> workspaces = m_environment.workspaces.workspaces();
        m_selection = workspaces.isEmpty() ? QUuid() : workspaces.first()->id();
    }
    refresh();
}

void MainWorkspaceView::refresh()
{
    m_sidebar->showWorkspaces(m_environment.workspaces.workspaces(), m_selection);
    Message message;
    if (m_notice && m_notice->workspaceID == m_selection)
        message = m_notice->message;
    m_column->show(m_environment.workspaces.find(m_selection), message);
}

void MainWorkspaceView::registerHotKeys()
{
    const QPointer<MainWorkspaceView> self = this;
    m_environment.hotKeys.registerHotKeys(
        m_environment.workspaces.workspaces(), [self](const QUuid& id) {
            if (TrovellWorkspace* workspace =
                    self ? self->m_environment.workspaces.find(id) : nullptr)
                self->m_environment.startWorkspace(*workspace);
        });
}

void MainWorkspaceView::perform(WorkspaceAction action, const QUuid& id)
{
    TrovellWorkspace* workspace = m_environment.workspaces.find(id);
    if (!workspace)
        return;
    switch (action) {
    case WorkspaceAction::start:
        m_environment.startWorkspace(*workspace);
        return;
    case WorkspaceAction::edit:
        return present({.kind = SheetKind::edit, .workspace = workspace});
    case WorkspaceAction::updateLayout:
        return present({.kind = SheetKind::updateLayout, .workspace = workspace});
    case WorkspaceAction::saveAsNew:
        return present({.kind = SheetKind::saveAsNew, .workspace = workspace});
    case WorkspaceAction::rename:
        return present({.kind = SheetKind::rename, .workspace = workspace});
    case WorkspaceAction::duplicate:
        return duplicate(*workspace);
    case WorkspaceAction::clearLayout:
        return present({.kind = AlertKind::clearLayout, .workspace = workspace});
    case WorkspaceAction::remove:
        return present({.kind = AlertKind::deleteWorkspace, .workspace = workspace});
    }
}

void MainWorkspaceView::duplicate(const TrovellWorkspace& workspace)
{
    const auto copy = duplicateWorkspace(m_environment.context, workspace);
    if (succeeded(copy))
        finishSheet(*copy, {phrases::created, (*copy)->name()});
}

void MainWorkspaceView::remove(TrovellWorkspace& workspace)
{
    if (!succeeded(deleteWorkspace(m_environment.context, workspace)))
        return;
    m_selection = {};
    reconcileSelection();
}

void MainWorkspaceView::clearLayout(TrovellWorkspace& workspace)
{
    if (!succeeded(clearSavedLayout(m_environment.context, workspace)))
        return;
    m_notice = {workspace.id(), {phrases::savedLayoutCleared, workspace.name()}};
    refresh();
}

template <class Value> bool MainWorkspaceView::succeeded(const Expected<Value, StoreError>& written)
{
    if (written)
        m_reportedFailure.reset();
    else
        reportFailure(written.error());
    return written.has_value();
}

void MainWorkspaceView::reportFailure(StoreError error)
{
    m_reportedFailure = error;
    present({.kind = AlertKind::error, .reason = description(error)});
}

void MainWorkspaceView::reportInBackground(StoreError error)
{
    // It comes again with every attempt to save or read; saying it once is enough.
    if (error != m_reportedFailure)
        reportFailure(error);
}

void MainWorkspaceView::present(const WorkspaceSheetRequest& request)
{
    if (m_activeSheet)
        return;
    m_activeSheet = request;
    Sheet* sheet = makeSheet(request);
    const auto forget = [this, id = request.id] {
        if (m_activeSheet && m_activeSheet->id == id)
            m_activeSheet.reset();
    };
    connect(sheet, &QDialog::finished, this, forget);
    connect(sheet, &QObject::destroyed, this, forget);
    sheet->open();
}

Sheet* MainWorkspaceView::makeSheet(const WorkspaceSheetRequest& request)
{
    const auto edit = [&](TextKey<Placeholder::text> done) -> Sheet* {
        auto* sheet = new WorkspaceEditorView(m_environment, request.workspace, window());
        connect(sheet, &WorkspaceEditorView::saved, this, [this, done](TrovellWorkspace* saved) {
            finishSheet(saved, {done, saved->name()});
        });
        return sheet;
    };
    const auto capture = [&](CapturePurpose purpose) -> Sheet* {
        auto* sheet = new WorkspaceCaptureView(m_environment, purpose, request.workspace, window());
        connect(sheet, &WorkspaceCaptureView::saved, this, &MainWorkspaceView::finishSheet);
        return sheet;
    };
    switch (request.kind) {
    case SheetKind::edit:
        return edit(phrases::saved);
    case SheetKind::newEmpty:
        return edit(phrases::created);
    case SheetKind::updateLayout:
        return capture(CapturePurpose::update);
    case SheetKind::saveAsNew:
        return capture(CapturePurpose::saveAsNew);
    case SheetKind::captureCurrent:
        return capture(CapturePurpose::create);
    case SheetKind::rename:
        break;
    }
    auto* sheet =
        new RenameWorkspaceView(m_environment, m_environment.context, *request.workspace, window());
    connect(sheet, &RenameWorkspaceView::saved, this, [this](TrovellWorkspace* saved) {
        finishSheet(saved, {phrases::renamed, saved->name()});
    });
    return sheet;
}

void MainWorkspaceView::finishSheet(TrovellWorkspace* workspace, const Message& notice)
{
    m_reportedFailure.reset();
    m_notice = {workspace->id(), notice};
    select(workspace->id());
}

void MainWorkspaceView::present(const WorkspaceAlertRequest& request)
{
    if (m_alert)
        m_alert->reject();
    m_activeAlert = request;
    m_alert = openAlert(request);
    connect(m_alert, &QDialog::finished, this, [this, id = request.id] {
        if (m_activeAlert && m_activeAlert->id == id)
            m_activeAlert.reset();
    });
    connect(m_alert, &Alert::chosen, this, [this, request](Alert::Role role) {
        if (role == Alert::Role::destructive)
            answerAlert(request);
    });
}

Alert* MainWorkspaceView::openAlert(const WorkspaceAlertRequest& request)
{
    const Localization& words = m_environment.words;
    const auto ask = [&](TextKey<> title, TextKey<> message, TextKey<> action) {
        auto* alert = new Alert(m_environment.visual, window(), {}, {});
        words.render(alert, [&words, alert, title, message] {
            alert->setTexts(words.text(title), words.text(message));
        });
        words.renderText(alert->addButton({}, Alert::Role::cancel), u"Cancel"_key);
        words.renderText(alert->addButton({}, Alert::Role::destructive), action);
        alert->open();
        return alert;
    };
    switch (request.kind) {
    case AlertKind::deleteWorkspace:
        return ask(u"Delete Workspace?"_key,
                   u"Its saved items and window layout will also be removed. This cannot be "
                   u"undone."_key,
                   u"Delete"_key);
    case AlertKind::clearLayout:
        return ask(u"Clear Saved Layout?"_key,
                   u"Workspace items will stay in place, but all saved window positions will be "
                   u"removed."_key,
                   u"Clear Saved Layout"_key);
    case AlertKind::error:
        break;
    }
    return showWorkspaceAlert(m_environment, frontWindow(), request.reason);
}

void MainWorkspaceView::answerAlert(const WorkspaceAlertRequest& request)
{
    if (!request.workspace || request.workspace->isRemoved())
        return;
    if (request.kind == AlertKind::deleteWorkspace)
        remove(*request.workspace);
    else
        clearLayout(*request.workspace);
}

QWidget* MainWorkspaceView::frontWindow() const
{
    QWidget* front = window();
    for (const QWidget* behind = nullptr; behind != front;) {
        behind = front;
        const auto sheets = front->findChildren<Sheet*>(Qt::FindDirectChildrenOnly);
        const auto open = std::ranges::find_if(sheets, &QWidget::isVisible);
        if (open != sheets.end())
            front = *open;
    }
    return front;
}

} // namespace trovell
