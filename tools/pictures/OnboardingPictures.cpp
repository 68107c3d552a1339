// The guide of the first run.
#include "app/PreferenceStore.h"
#include "views/app/OnboardingView.h"
#include "views/app/RootView.h"
#include "pictures/Picture.h"
#include "pictures/Stage.h"

namespace trovell::screenshots {

namespace {

OnboardingView& openGuide(Stage& stage)
{
    stage.dependencies().defaults().setValue(u"onboarding.completed"_qs, false);
    stage.windows->trusted = false;
    stage.openMainWindow();
    return *stage.window().findChild<RootView*>()->onboarding();
}

OnboardingView& openPermission(Stage& stage)
{
    OnboardingView& guide = openGuide(stage);
    stage.press(u"Continue"_qs);
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
    stage.press(u"Continue Without Layout"_qs);
    return stage.pictureOfSheet(guide);
}

QImage privacy(Stage& stage)
{
    OnboardingView& guide = openPermission(stage);
    stage.press(u"Read the privacy explanation"_qs);
    return stage.pictureOfSheet(guide);
}

} // namespace

Pictures onboardingPictures()
{
    return {{u"50-onboarding-in-window"_qs, &inWindow},
            {u"51-onboarding-welcome"_qs, &welcome},
            {u"52-onboarding-permission"_qs, &permission},
            {u"53-onboarding-permission-granted"_qs, &permissionGranted},
            {u"54-onboarding-first-workspace"_qs, &firstWorkspace},
            {u"55-onboarding-privacy"_qs, &privacy}};
}

} // namespace trovell::screenshots
