// SPDX-License-Identifier: MIT
//
// The menu behind the icon in the panel, as Qt draws it where the desktop does not.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/app/MenuBarWorkspaceView.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

QImage open(Stage& stage)
{
    MenuBarWorkspaceView view(stage.menuBar());
    Stage::settle();
    view.menu()->popup({200, 200});
    if (view.menu()->actions().first()->isEnabled())
        view.menu()->setActiveAction(view.menu()->actions().first());
    Stage::settle();
    return view.menu()->grab().toImage();
}

} // namespace

Pictures trayPictures()
{
    return {{u"70-tray-menu"_s,
             [](Stage& stage) {
                 stage.desktop().storeWorkspaces();
                 return open(stage);
             }},
            {u"71-tray-menu-empty"_s, &open}};
}

} // namespace trovell::screenshots
