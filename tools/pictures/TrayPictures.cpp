// The menu behind the icon in the panel, as Qt draws it where the desktop does not.
#include "views/app/MenuBarWorkspaceView.h"
#include "pictures/Picture.h"
#include "pictures/Stage.h"

namespace trovell::screenshots {

namespace {

QImage open(Stage& stage)
{
    MenuBarWorkspaceView view(stage.environment());
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
    return {{u"70-tray-menu"_qs,
             [](Stage& stage) {
                 stage.desktop().storeWorkspaces();
                 return open(stage);
             }},
            {u"71-tray-menu-empty"_qs, &open}};
}

} // namespace trovell::screenshots
