// SPDX-License-Identifier: MIT

#include "views/app/OnboardingView.h"

#include "editing/WorkspaceCommands.h"
#include "model/StoreContext.h"
#include "model/WorkspaceQuery.h"
#include "views/app/CenteredColumn.h"
#include "views/app/PageFade.h"
#include "views/app/PermissionPage.h"
#include "views/app/PrivacyView.h"
#include "views/app/StepIndicator.h"
#include "views/shared/SheetParts.h"
#include "views/shared/WorkspaceAlert.h"
#include "views/style/Accessibility.h"
#include "views/style/Layouts.h"
#include "views/style/PushButton.h"
#include "views/style/SymbolView.h"
#include "views/style/TextLabel.h"
#include "views/style/TrovellBrandMark.h"
#include "windows/AccessibilityPermissionManager.h"

#include <QPointer>
#include <QStackedWidget>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize guideSize(590, 500);
constexpr int margin = 24;
constexpr int gap = 18;
constexpr int mottoGap = 6;
constexpr int titleGap = 10;
constexpr int stepCount = 3;

QWidget* inTheMiddle(QWidget* content)
{
    auto* page = new QWidget;
    new ColumnLayout(page, 0, {Stretch{}, content, Stretch{}});
    return page;
}

} // namespace

OnboardingView::Step stepAfterWelcome(bool isTrusted)
{
    return isTrusted ? OnboardingView::Step::firstWorkspace : OnboardingView::Step::permission;
}

OnboardingView::Step stepBefore(OnboardingView::Step step, bool isTrusted)
{
    const bool isPermissionNext = step == OnboardingView::Step::firstWorkspace && !isTrusted;
    return isPermissionNext ? OnboardingView::Step::permission : OnboardingView::Step::welcome;
}

OnboardingView::OnboardingView(const MainEnvironment& environment, QWidget* window)
    : Sheet(environment.visual, window, {}), m_environment(environment),
      m_indicator(new StepIndicator(environment.visual, stepCount)), m_pages(new QStackedWidget),
      m_permission(new PermissionPage(environment, environment.accessibility)),
      m_back(new PushButton(environment.visual, {})),
      m_forward(new PushButton(environment.visual, {})),
      m_finish(new PushButton(environment.visual, {}, PushButton::Kind::prominent))
{
    setBody(buildPages());
    setBoxSize(guideSize);
    environment.words.render(this, [this] { showStep(); });
    connect(&environment.workspaces, &WorkspaceQuery::listChanged, this, &OnboardingView::showStep);
    connect(&environment.accessibility, &AccessibilityPermissionManager::isTrustedChanged, this,
            &OnboardingView::advanceWhenGranted);
    connect(m_permission, &PermissionPage::privacyRequested, this, &OnboardingView::showPrivacy);
}

QWidget* OnboardingView::buildPages()
{
    m_pages->addWidget(buildWelcomePage());
    m_pages->addWidget(m_permission);
    m_pages->addWidget(buildFirstWorkspacePage());
    auto* body = new QWidget;
    new ColumnLayout(body, allAround(margin), 0,
                     {{m_indicator, 0, Qt::AlignHCenter}, {m_pages, 1}, buildNavigation()});
    return body;
}

QWidget* OnboardingView::buildWelcomePage()
{
    const Localization& words = m_environment.words;
    auto* content = new CenteredColumn(m_environment.visual);
    content->add(new TrovellBrandMark(m_environment.visual, 88), 0);
    words.renderText(content->addText(TextRole::brandTitle, ColorToken::labelPrimary, 430, gap),
                     u"Welcome to Trovell"_key);
    words.renderText(content->addText(TextRole::title3, ColorToken::labelSecondary, 430, mottoGap),
                     phrases::motto);
    words.renderText(
        content->addText(TextRole::body, ColorToken::labelPrimary, 430, gap),
        u"Save the apps, files, folders, links, and window layout you use together—then bring everything back with one click."_key);
    return inTheMiddle(content);
}

QWidget* OnboardingView::buildFirstWorkspacePage()
{
    const Localization& words = m_environment.words;
    auto* content = new CenteredColumn(m_environment.visual);
    content->add(new SymbolView(m_environment.visual, u"plus.rectangle.on.folder"_s, 48), 0);
    words.renderText(content->addText(TextRole::pageTitle, ColorToken::labelPrimary, 420, gap),
                     u"Create your first workspace"_key);
    words.renderText(
        content->addText(TextRole::body, ColorToken::labelPrimary, 420, titleGap),
        u"Start with a name. You can add apps and capture your layout in the workspace editor."_key);
    content->add(m_finish, gap);
    connect(m_finish, &QAbstractButton::clicked, this, &OnboardingView::finish);
    return inTheMiddle(content);
}

QWidget* OnboardingView::buildNavigation()
{
    auto* navigation = new QWidget;
    new RowLayout(navigation, 0, {m_back, Stretch{}, m_forward});
    m_environment.words.renderText(m_back, u"Back"_key);
    connect(m_back, &QAbstractButton::clicked, this, &OnboardingView::goBack);
    connect(m_forward, &QAbstractButton::clicked, this, &OnboardingView::goForward);
    return navigation;
}

void OnboardingView::open()
{
    m_environment.accessibility.refresh();
    Sheet::open();
}

bool OnboardingView::isTrusted() const
{
    return m_environment.accessibility.isTrusted();
}

QCoro::Task<> OnboardingView::goForward()
{
    const Step step = m_step;
    if (step == Step::permission) {
        goTo(Step::firstWorkspace, Change::immediate);
        co_return;
    }
    const QPointer<OnboardingView> self(this);
    const bool isTrusted = co_await m_environment.accessibility.refresh();
    if (self && m_step == step)
        goTo(stepAfterWelcome(isTrusted), Change::animated);
}

QCoro::Task<> OnboardingView::goBack()
{
    const QPointer<OnboardingView> self(this);
    const Step step = m_step;
    if (step == Step::firstWorkspace)
        co_await m_environment.accessibility.refresh();
    if (self && m_step == step)
        goTo(stepBefore(step, isTrusted()), Change::animated);
}

void OnboardingView::advanceWhenGranted(bool isTrusted)
{
    if (isTrusted && m_step == Step::permission)
        goTo(Step::firstWorkspace, Change::animated);
    else
        showStep();
}

void OnboardingView::goTo(Step step, Change change)
{
    m_step = step;
    const int index = static_cast<int>(step);
    m_indicator->setStep(index, change == Change::animated);
    showStep();
    if (change == Change::animated)
        fadeToPage(*m_pages, index, m_environment.visual);
    else
        m_pages->setCurrentIndex(index);
    nextButton()->setFocus(Qt::TabFocusReason);
    announce(*m_indicator, m_indicator->accessibleName());
}

void OnboardingView::showStep()
{
    const Localization& words = m_environment.words;
    setTitle(*this, words.text(u"Welcome to Trovell"_key));
    m_indicator->setAccessibleName(
        words.text(phrases::stepOfSteps, static_cast<int>(m_step) + 1, stepCount));
    const bool isWithoutLayout = m_step == Step::permission && !isTrusted();
    m_back->setVisible(m_step != Step::welcome);
    m_forward->setVisible(m_step != Step::firstWorkspace);
    m_forward->setText(isWithoutLayout ? words.text(u"Continue Without Layout"_key)
                                       : words.text(u"Continue"_key));
    m_forward->setKind(isWithoutLayout ? PushButton::Kind::bordered : PushButton::Kind::prominent);
    m_finish->setText(m_environment.workspaces.workspaces().isEmpty()
                          ? words.text(u"Create Workspace"_key)
                          : words.text(u"Open Trovell"_key));
    setDefaultButton(nextButton());
}

PushButton* OnboardingView::nextButton() const
{
    if (m_step == Step::firstWorkspace)
        return m_finish;
    return m_step == Step::permission && !isTrusted() ? m_permission->requestButton() : m_forward;
}

void OnboardingView::showPrivacy()
{
    (new PrivacyView(m_environment, this))->open();
}

void OnboardingView::finish()
{
    if (!m_environment.workspaces.workspaces().isEmpty())
        return accept();
    const auto created = createWorkspace(m_environment.context, u"My Workspace"_s);
    if (created)
        accept();
    else
        showWorkspaceAlert(m_environment, this, description(created.error()));
}

} // namespace trovell
