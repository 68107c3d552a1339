// SPDX-License-Identifier: MIT
//
// The update window, over the real updater and a server.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "support/TestAuthority.h"
#include "support/UpdateWorld.h"
#include "views/app/UpdateView.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

using test::UpdateWorld;

/// The window after `act`.
QImage afterwards(Stage& stage, const std::function<void(UpdateWorld&, Updater&)>& act)
{
    const test::TestAuthority authority;
    UpdateWorld world(authority, authority.serverConfiguration(u"IP:127.0.0.1"_s));
    world.changeItem(&test::PublishedItem::notes,
                     u"New in this version:\n• Layouts with three displays\n• Faster start with "
                     u"many workspaces\n• Corrected texts in German and Japanese"_s);
    const auto updater = world.makeUpdater();
    UpdateView view(stage.environment(), *updater);
    view.show();
    view.activateWindow();
    act(world, *updater);
    QCoreApplication::processEvents();
    return stage.pictureNow(view);
}

QImage available(Stage& stage)
{
    return afterwards(stage, [](UpdateWorld&, Updater& updater) { test::check(updater); });
}

QImage downloading(Stage& stage)
{
    return afterwards(stage, [](UpdateWorld&, Updater& updater) {
        test::check(updater);
        updater.download();
    });
}

QImage ready(Stage& stage)
{
    return afterwards(stage, [](UpdateWorld&, Updater& updater) {
        test::check(updater);
        test::download(updater);
    });
}

QImage failed(Stage& stage)
{
    return afterwards(stage, [](UpdateWorld& world, Updater& updater) {
        world.serveFeed({.status = 500});
        test::check(updater);
    });
}

} // namespace

Pictures updatePictures()
{
    return {{u"65-update-available"_s, &available},
            {u"66-update-downloading"_s, &downloading},
            {u"67-update-ready"_s, &ready},
            {u"68-update-failed"_s, &failed}};
}

} // namespace trovell::screenshots
