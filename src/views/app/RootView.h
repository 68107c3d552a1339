// SPDX-License-Identifier: MIT
//
// What the main window shows: the workspaces and, until it was seen once, the guide over them. Main
// thread.
#pragma once

#include "views/main/MainEnvironment.h"

#include <QPointer>
#include <QWidget>

namespace trovell {

class MainWorkspaceView;
class OnboardingView;
class PreferenceStore;

/// The guide comes as a sheet over this view's window, each time that is shown while the preference
/// "onboarding.completed" is not true. However the guide is closed, it counts as seen; when it goes
/// away with the window or the program, it does not. The window permission is looked at afresh when
/// the view first appears and whenever the application becomes active.
class RootView : public QWidget {
    Q_OBJECT

public:
    /// `defaults` outlives the view.
    RootView(const MainEnvironment& environment, PreferenceStore& defaults,
             QWidget* parent = nullptr);

    [[nodiscard]] MainWorkspaceView& workspaces() const { return *m_workspaces; }
    /// The guide while it is open, else none.
    [[nodiscard]] OnboardingView* onboarding() const { return m_onboarding; }

Q_SIGNALS:
    void settingsRequested();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void appear();
    void presentOnboarding();
    void refreshWhenActive(Qt::ApplicationState state);

    MainEnvironment m_environment;
    PreferenceStore& m_defaults;
    MainWorkspaceView* m_workspaces;
    QPointer<OnboardingView> m_onboarding;
    bool m_hasAppeared = false;
};

} // namespace trovell
