// SPDX-License-Identifier: MIT

#include "views/capture/WorkspaceCaptureView.h"

#include "launch/ResourceSystem.h"
#include "model/StoreContext.h"
#include "model/TrovellWorkspace.h"
#include "views/capture/CaptureContents.h"
#include "views/capture/CaptureStatePages.h"
#include "views/shared/SheetParts.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"
#include "windows/AccessibilityPermissionManager.h"
#include "windows/WindowCaptureService.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize boxSize(820, 720);
constexpr int sheetPadding = 24;
constexpr int headerHeight = 84;
constexpr int headerMargin = 18;
constexpr int tileSide = 44;
constexpr int tileRadius = 10;
constexpr int tileSymbolSize = 24;
constexpr int headerGap = 14;
// The titles leave room for the cross in the corner.
constexpr int headerTrailingMargin = 60;

Message notice(CapturePurpose purpose, const QString& name)
{
    switch (purpose) {
    case CapturePurpose::create:
        return {phrases::captured, name};
    case CapturePurpose::update:
        return {phrases::layoutUpdated, name};
    case CapturePurpose::saveAsNew:
        return {phrases::savedAsNewWorkspace, name};
    }
    Q_UNREACHABLE();
}

} // namespace

WorkspaceCaptureView::WorkspaceCaptureView(const EditingEnvironment& environment,
                                           CapturePurpose purpose,
                                           TrovellWorkspace* workspaceOrNull, QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment), m_purpose(purpose),
      m_workspace(workspaceOrNull),
      m_workspaceName(workspaceOrNull ? workspaceOrNull->name() : QString()),
      m_draft(makeCaptureDraft(purpose, workspaceOrNull))
{
    auto* body = new QWidget;
    m_pages = new ColumnLayout(body, 0);
    setHeader(makeHeader());
    setBody(body);
    setFooter(makeFooter());
    setBoxSize(boxSize);
    setLoadState({});
    environment.words.render(this, [this] {
        setTitle(*this, shownTitle());
        showCloseButtonWhereNeeded();
        showSummary();
    });
    connect(&environment.accessibility, &AccessibilityPermissionManager::isTrustedChanged, this,
            [this](bool isTrusted) {
                if (isTrusted && isVisible())
                    loadCapture();
            });
}

void WorkspaceCaptureView::open()
{
    Sheet::open();
    loadCapture();
}

QWidget* WorkspaceCaptureView::makeHeader()
{
    const VisualStyle& visual = m_environment.visual;
    auto* header = new QWidget;
    header->setMinimumHeight(headerHeight);
    auto* symbol = new SymbolView(visual, u"macwindow.on.rectangle"_s, tileSymbolSize);
    symbol->setTile(tileSide, tileRadius);
    auto* title = new TextLabel(visual, {}, TextRole::title2);
    auto* subtitle = new TextLabel(visual, {}, TextRole::callout, ColorToken::labelSecondary);
    m_environment.words.render(header, [this, title, subtitle] {
        title->setText(shownTitle());
        subtitle->setText(shownSubtitle());
    });
    auto* titles = new ColumnLayout(0, {Stretch{}});
    for (TextLabel* label : {title, subtitle}) {
        label->setWordWrap(true);
        titles->addWidget(label);
    }
    titles->addStretch();
    new RowLayout(header, {sheetPadding, headerMargin, headerTrailingMargin, headerMargin},
                  headerGap, {symbol, {titles, 1}});
    return header;
}

QWidget* WorkspaceCaptureView::makeFooter()
{
    const VisualStyle& visual = m_environment.visual;
    m_summary = new TextLabel(visual, {}, TextRole::body, ColorToken::labelSecondary);
    m_saveButton = new PushButton(visual, {}, PushButton::Kind::prominent);
    m_environment.words.renderText(m_saveButton, m_purpose == CapturePurpose::update
                                                     ? u"Save Layout"_key
                                                     : u"Save Workspace"_key);
    connect(m_saveButton, &QAbstractButton::clicked, this, &WorkspaceCaptureView::saveCapture);
    return makeSheetFooter(m_environment, *this, m_summary, m_saveButton);
}

QString WorkspaceCaptureView::shownTitle() const
{
    const Localization& words = m_environment.words;
    switch (m_purpose) {
    case CapturePurpose::update:
        return words.text(u"Save Current Layout"_key);
    case CapturePurpose::saveAsNew:
        return words.text(u"Save as New Workspace"_key);
    case CapturePurpose::create:
        return words.text(u"Capture Current Workspace"_key);
    }
    Q_UNREACHABLE();
}

QString WorkspaceCaptureView::shownSubtitle() const
{
    const Localization& words = m_environment.words;
    switch (m_purpose) {
    case CapturePurpose::update:
        return words.text(phrases::chooseWindowsOfLayout, m_workspaceName);
    case CapturePurpose::saveAsNew:
        return words.text(phrases::captureWithoutChanging, m_workspaceName);
    case CapturePurpose::create:
        return words.text(u"Choose the open apps and windows to save as a reusable workspace."_key);
    }
    Q_UNREACHABLE();
}

QCoro::Task<> WorkspaceCaptureView::loadCapture()
{
    const QPointer<WorkspaceCaptureView> self(this);
    const int load = ++m_loadCount;
    const bool isTrusted = co_await m_environment.accessibility.refresh();
    // Finding access granted, the refresh has started a capture already.
    if (!self || load != m_loadCount)
        co_return;
    if (!isTrusted) {
        setLoadState({});
        co_return;
    }
    setLoadState({.kind = CaptureLoadState::Kind::loading});
    capture(load);
}

QCoro::Task<> WorkspaceCaptureView::capture(int load)
{
    const QPointer<WorkspaceCaptureView> self(this);
    const auto filter = captureFilter(m_purpose, m_workspace);
    auto reading = m_environment.windowCapture.captureApplications(
        filter, m_purpose == CapturePurpose::update);
    const WindowCaptureService::Capture captured = co_await reading;
    if (!self || load != m_loadCount)
        co_return;
    if (captured)
        showCapture(*captured);
    else
        setLoadState(
            {.kind = CaptureLoadState::Kind::failed, .message = description(captured.error())});
}

void WorkspaceCaptureView::showCapture(const QList<CapturedApplication>& applications)
{
    const auto retained = buildRetainedPlacements(m_purpose, m_workspace, applications);
    if (!retained) {
        setLoadState(
            {.kind = CaptureLoadState::Kind::failed, .message = description(retained.error())});
        return;
    }
    m_draft.applications = applications;
    m_draft.retainedPlacements = *retained;
    setLoadState({.kind = CaptureLoadState::Kind::loaded});
}

QCoro::Task<> WorkspaceCaptureView::continueWithAppsOnly(int load)
{
    const QPointer<WorkspaceCaptureView> self(this);
    auto listing = m_environment.windowCapture.runningApplications();
    const QList<CapturedApplication> applications = co_await listing;
    if (!self || load != m_loadCount)
        co_return;
    if (applications.isEmpty()) {
        setLoadState({.kind = CaptureLoadState::Kind::failed,
                      .message = u"No visible user applications were available to save."_key});
        co_return;
    }
    m_draft.applications = applications;
    m_draft.retainedPlacements.clear();
    setLoadState({.kind = CaptureLoadState::Kind::loaded, .appsOnly = true});
}

void WorkspaceCaptureView::setLoadState(const CaptureLoadState& state)
{
    m_loadState = state;
    m_firstFocus = nullptr;
    setDefaultButton(nullptr);
    setFooterVisible(state.kind == CaptureLoadState::Kind::loaded);
    showPage(makePage());
    showCloseButtonWhereNeeded();
    showSummary();
    setInitialFocus(m_firstFocus);
    if (m_firstFocus && isVisible())
        m_firstFocus->setFocus(Qt::TabFocusReason);
}

QWidget* WorkspaceCaptureView::makePage()
{
    switch (m_loadState.kind) {
    case CaptureLoadState::Kind::loaded:
        return makeLoadedPage();
    case CaptureLoadState::Kind::failed:
        return makeFailurePage();
    case CaptureLoadState::Kind::idle:
        if (!m_environment.accessibility.isTrusted())
            return makePermissionPage();
        break;
    case CaptureLoadState::Kind::loading:
        break;
    }
    return new CaptureProgressPage(m_environment);
}

QWidget* WorkspaceCaptureView::makeLoadedPage()
{
    auto* contents = new CaptureContents(m_environment, m_purpose, m_loadState.appsOnly, m_draft);
    connect(contents, &CaptureContents::changed, this, &WorkspaceCaptureView::showSummary);
    setDefaultButton(m_saveButton);
    m_firstFocus = contents->nameField() ? contents->nameField() : m_saveButton;
    return contents;
}

QWidget* WorkspaceCaptureView::makePermissionPage()
{
    auto* page = new CapturePermissionPage(m_environment, m_environment.accessibility,
                                           m_purpose == CapturePurpose::create);
    connect(page, &CapturePermissionPage::continueWithAppsOnly, this,
            [this] { continueWithAppsOnly(++m_loadCount); });
    setDefaultButton(page->defaultButton());
    m_firstFocus = page->defaultButton();
    return page;
}

QWidget* WorkspaceCaptureView::makeFailurePage()
{
    auto* page = new CaptureFailurePage(m_environment, m_loadState.message);
    connect(page, &CaptureFailurePage::cancelled, this, &Sheet::cancel);
    connect(page, &CaptureFailurePage::tryAgain, this, &WorkspaceCaptureView::loadCapture);
    setDefaultButton(page->defaultButton());
    m_firstFocus = page->defaultButton();
    return page;
}

void WorkspaceCaptureView::showPage(QWidget* page)
{
    if (m_page) {
        m_page->hide();
        m_pages->removeWidget(m_page);
        // One of its buttons may have been pressed to come here.
        m_page->deleteLater();
    }
    m_page = page;
    m_pages->addWidget(page);
    // The layout would do so later, and what takes the focus must be visible.
    page->show();
}

/// Loaded and failed pages have a Cancel button of their own.
void WorkspaceCaptureView::showCloseButtonWhereNeeded()
{
    showCloseButton(m_environment.words.text(u"Cancel"_key));
    const auto kind = m_loadState.kind;
    if (kind == CaptureLoadState::Kind::loaded || kind == CaptureLoadState::Kind::failed)
        hideCloseButton();
}

void WorkspaceCaptureView::showSummary()
{
    const Localization& words = m_environment.words;
    const QList<CapturedApplication>& applications = m_draft.applications;
    const qsizetype kept = keptPlacementIDs(m_draft.retainedPlacements).size();
    m_summary->setText(m_loadState.appsOnly
                           ? words.text(phrases::applicationsWillBeSaved,
                                        launchedApplications(applications).size())
                           : words.text(phrases::windowsSelectedAndPositionsKept,
                                        includedWindows(applications).size(), kept));
    m_saveButton->setEnabled(!isSaveDisabled(m_purpose, m_draft));
}

void WorkspaceCaptureView::saveCapture()
{
    const auto workspace = trovell::saveCapture(m_purpose, m_draft, m_workspace,
                                                m_environment.context, m_environment.resources);
    if (!workspace) {
        showWorkspaceAlert(m_environment, this, description(workspace.error()));
        return;
    }
    const QPointer<WorkspaceCaptureView> self(this);
    Q_EMIT saved(*workspace, notice(m_purpose, (*workspace)->name()));
    if (self)
        accept();
}

} // namespace trovell
