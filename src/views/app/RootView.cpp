// SPDX-License-Identifier: MIT

#include "views/app/RootView.h"

#include "preferences/PreferenceStore.h"
#include "views/app/OnboardingView.h"
#include "views/main/MainWorkspaceView.h"
#include "views/style/Layouts.h"
#include "windows/AccessibilityPermissionManager.h"

#include <QGuiApplication>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

const QString completedKey = u"onboarding.completed"_s;

} // namespace

RootView::RootView(const MainEnvironment& environment, PreferenceStore& defaults, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_defaults(defaults),
      m_workspaces(new MainWorkspaceView(environment, this))
{
    new ColumnLayout(this, 0, {m_workspaces});
    connect(m_workspaces, &MainWorkspaceView::settingsRequested, this,
            &RootView::settingsRequested);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &RootView::refreshWhenActive);
}

void RootView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The window itself is shown after its content, and a sheet only over a window that is there.
    QMetaObject::invokeMethod(this, &RootView::appear, Qt::QueuedConnection);
}

void RootView::appear()
{
    if (!m_hasAppeared)
        m_environment.accessibility.refresh();
    m_hasAppeared = true;
    presentOnboarding();
}

void RootView::presentOnboarding()
{
    if (m_defaults.value(completedKey).toBool(false) || m_onboarding || !isVisible())
        return;
    m_onboarding = new OnboardingView(m_environment, this);
    connect(m_onboarding, &QDialog::finished, this,
            [&defaults = m_defaults] { defaults.setValue(completedKey, true); });
    m_onboarding->open();
}

void RootView::refreshWhenActive(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationActive)
        m_environment.accessibility.refresh();
}

} // namespace trovell
