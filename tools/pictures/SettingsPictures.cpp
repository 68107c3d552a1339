// SPDX-License-Identifier: MIT
//
// The pages of the settings window.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/app/SettingsView.h"
#include "views/style/Picker.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

using Page = SettingsView::Page;

std::unique_ptr<SettingsView> open(Stage& stage, Page page)
{
    auto view = std::make_unique<SettingsView>(stage.settings());
    view->show();
    view->activateWindow();
    view->showPage(page);
    Stage::settle();
    return view;
}

QImage general(Stage& stage)
{
    stage.dependencies().launchAtLogin().setEnabled(true);
    stage.dependencies().preferences().setAppearance(
        stage.environment().visual.appearance() == Appearance::dark ? AppAppearance::dark
                                                                    : AppAppearance::light);
    return stage.picture(*open(stage, Page::general));
}

QImage otherStates(Stage& stage)
{
    stage.loginItem->failure = u"The login item could not be changed."_s;
    AppPreferences& preferences = stage.dependencies().preferences();
    preferences.setAppearance(AppAppearance::system);
    preferences.setShowMenuBarItem(false);
    preferences.setKeepRunningAfterClose(false);
    const auto view = open(stage, Page::general);
    stage.press(*view, u"Launch Trovell at login"_s);
    return stage.picture(*view);
}

QImage languages(Stage& stage)
{
    const auto view = open(stage, Page::general);
    for (auto* picker : view->findChildren<Picker*>()) {
        if (picker->accessibleName() == u"Language"_s)
            QTest::mousePress(picker, Qt::LeftButton);
    }
    return stage.picture(*view);
}

QImage updates(Stage& stage)
{
    return stage.picture(*open(stage, Page::updates));
}

QImage about(Stage& stage)
{
    return stage.picture(*open(stage, Page::about));
}

} // namespace

Pictures settingsPictures()
{
    return {{u"60-settings-general"_s, &general},
            {u"61-settings-general-states"_s, &otherStates},
            {u"62-settings-language-list"_s, &languages},
            {u"63-settings-updates"_s, &updates},
            {u"64-settings-about"_s, &about}};
}

} // namespace trovell::screenshots
