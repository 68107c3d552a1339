// SPDX-License-Identifier: MIT
//
// The menus of the main window.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/main/WorkspaceSidebarList.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

QImage withMenu(Stage& stage, const QString& button, int row)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    stage.openMenu(button, row);
    return stage.picture();
}

QImage withContextMenu(Stage& stage)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    WorkspaceSidebarList& list = stage.sidebar();
    const QModelIndex row = list.model()->index(int(Workspace::musicPractice), 0);
    const QPoint place = list.rowRect(row).center() + QPoint(40, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
    QApplication::sendEvent(list.viewport(), &event);
    Stage::settle();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        qFatal("no menu opened");
    menu->setActiveAction(menu->actions().first());
    return stage.picture();
}

} // namespace

Pictures menuPictures()
{
    return {{u"09-main-add-menu"_s,
             [](Stage& stage) { return withMenu(stage, u"Add Workspace"_s, 1); }},
            {u"10-main-context-menu"_s, &withContextMenu},
            {u"11-main-workspace-menu"_s,
             [](Stage& stage) { return withMenu(stage, u"Workspace Actions"_s, 3); }}};
}

} // namespace trovell::screenshots
