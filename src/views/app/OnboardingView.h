// SPDX-License-Identifier: MIT
//
// The guide of the first run: a welcome, the window permission, the first workspace. Main thread.
#pragma once

#include "views/main/MainEnvironment.h"
#include "views/style/Sheet.h"

#include <QCoro/QCoroTask>

class QStackedWidget;

namespace trovell {

class PermissionPage;
class PushButton;
class StepIndicator;

/// Accepted when it was gone through to its end, rejected when it was closed on the way.
class OnboardingView : public Sheet {
    Q_OBJECT

public:
    enum class Step { welcome, permission, firstWorkspace };

    /// `window` is any widget of the window to cover.
    OnboardingView(const MainEnvironment& environment, QWidget* window);

    [[nodiscard]] Step step() const { return m_step; }

    void open() override;

private:
    enum class Change { animated, immediate };

    QWidget* buildWelcomePage();
    QWidget* buildFirstWorkspacePage();
    QWidget* buildPages();
    QWidget* buildNavigation();
    void goTo(Step step, Change change);
    QCoro::Task<> goForward();
    QCoro::Task<> goBack();
    void advanceWhenGranted(bool isTrusted);
    void showStep();
    void showPrivacy();
    void finish();

    [[nodiscard]] bool isTrusted() const;
    /// The next step of the page, for Return and the first focus.
    [[nodiscard]] PushButton* nextButton() const;

    MainEnvironment m_environment;
    Step m_step = Step::welcome;
    StepIndicator* m_indicator;
    QStackedWidget* m_pages;
    PermissionPage* m_permission;
    PushButton* m_back;
    PushButton* m_forward;
    PushButton* m_finish;
};

/// Where Continue on the welcome page leads: who has granted access is not asked for it.
[[nodiscard]] OnboardingView::Step stepAfterWelcome(bool isTrusted);
/// Where Back leads from the second or third step.
[[nodiscard]] OnboardingView::Step stepBefore(OnboardingView::Step step, bool isTrusted);

} // namespace trovell
