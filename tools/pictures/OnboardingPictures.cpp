// SPDX-License-Identifier: MIT
//
// The guide of the first run.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "preferences/PreferenceStore.h"
#include "views/app/OnboardingView.h"
#include "views/app/RootView.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

OnboardingView& openGuide(Stage& stage)
{
    stage.dependencies().defaults().setValue(u"onboarding.completed"_s, false);
    stage.windows->trusted = false;
    stage.openMainWindow();
    return *stage.window().findChild<RootView*>()->onboarding();
}

OnboardingView& openPermission(Stage& stage)
{
    OnboardingView& guide = openGuide(stage);
    stage.press(u"Continue"_s);
    return guide;
}

QImage inWindow(Stage& stage)
{
    openGuide(stage);
    return stage.picture();
}

QImage welcome(Stage& stage)
{
    return stage.pictureOfSheet(openGuide(stage));
}

QImage permission(Stage& stage)
{
    return stage.pictureOfSheet(openPermission(stage));
}

QImage permissionGranted(Stage& stage)
{
    OnboardingView& guide = openPermission(stage);
    stage.setTrusted(true);
    Stage::settle();
    // The page is only seen while it fades away.
    guide.findChild<QStackedWidget*>()->setCurrentIndex(1);
    return stage.pictureOfSheet(guide);
}

QImage firstWorkspace(Stage& stage)
{
    OnboardingView& guide = openPermission(stage);
    stage.press(u"Continue Without Layout"_s);
    return stage.pictureOfSheet(guide);
}

QImage privacy(Stage& stage)
{
    OnboardingView& guide = openPermission(stage);
    stage.press(u"Read the privacy explanation"_s);
    return stage.pictureOfSheet(guide);
}

} // namespace

Pictures onboardingPictures()
{
    return {{u"50-onboarding-in-window"_s, &inWindow},
            {u"51-onboarding-welcome"_s, &welcome},
            {u"52-onboarding-permission"_s, &permission},
            {u"53-onboarding-permission-granted"_s, &permissionGranted},
            {u"54-onboarding-first-workspace"_s, &firstWorkspace},
            {u"55-onboarding-privacy"_s, &privacy}};
}

} // namespace trovell::screenshots
