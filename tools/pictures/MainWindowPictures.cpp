// SPDX-License-Identifier: MIT
//
// The main window and its banners.
#include "model/StoreContext.h"
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/detail/WorkspaceItemsCard.h"
#include "views/main/WorkspaceSidebarList.h"
#include "views/shared/RowList.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

void open(Stage& stage, Workspace workspace)
{
    stage.desktop().storeWorkspaces(workspace == Workspace::homeNetwork);
    stage.openMainWindow(int(workspace));
}

QImage atRest(Stage& stage)
{
    open(stage, Workspace::writing);
    return stage.picture();
}

QImage withNotice(Stage& stage)
{
    stage.desktop().openWritingWindows();
    open(stage, Workspace::writing);
    stage.press(u"Save Layout"_s);
    stage.press(u"Save Layout"_s);
    return stage.picture();
}

QImage started(Stage& stage)
{
    stage.desktop().openWritingWindows();
    stage.desktop().openWindow(Application::documentViewer, u"Chapter 4 Outline"_s, 0,
                               {0.1, 0.1, 0.5, 0.5});
    open(stage, Workspace::clientReview);
    stage.press(u"Start Workspace"_s);
    stage.finishLaunch();
    return stage.picture();
}

QImage startedWithGaps(Stage& stage)
{
    stage.desktop().openWindow(Application::textEditor, u"Chapter 4 – Draft.md"_s, 0,
                               {0.1, 0.1, 0.5, 0.5});
    stage.desktop().openWindow(Application::textEditor, u"Notes.md"_s, 0, {0.1, 0.1, 0.5, 0.5});
    stage.desktop().openWindow(Application::files, u"Manuscript"_s, 0, {0.1, 0.1, 0.5, 0.5});
    stage.desktop().openWindow(Application::documentViewer, u"Chapter 4 Outline"_s, 0,
                               {0.1, 0.1, 0.5, 0.5});
    open(stage, Workspace::writing);
    stage.press(u"Start Workspace"_s);
    stage.finishLaunch();
    stage.press(u"Show Details"_s);
    return stage.picture();
}

QImage withoutPermission(Stage& stage)
{
    stage.windows->trusted = false;
    open(stage, Workspace::musicPractice);
    return stage.picture();
}

QImage starting(Stage& stage)
{
    open(stage, Workspace::writing);
    stage.press(u"Start Workspace"_s);
    return stage.picture();
}

QImage withoutItems(Stage& stage)
{
    open(stage, Workspace::homeNetwork);
    return stage.picture();
}

QImage empty(Stage& stage)
{
    stage.openMainWindow();
    return stage.picture();
}

QImage reordering(Stage& stage)
{
    open(stage, Workspace::writing);
    return stage.pictureOfDrag(stage.sidebar(), int(Workspace::fieldSketches),
                               int(Workspace::musicPractice), QPoint(104, 14));
}

QImage atMinimum(Stage& stage)
{
    stage.window().resize(900, 620);
    return atRest(stage);
}

QImage withTooltip(Stage& stage)
{
    open(stage, Workspace::writing);
    const auto* items = stage.window().findChild<WorkspaceItemsCard*>()->findChild<RowList*>();
    for (int row = 0; row < items->model()->rowCount(); ++row) {
        const QModelIndex index = items->model()->index(row, 0);
        if (index.data(Qt::ToolTipRole).toString().isEmpty())
            continue;
        const QPoint place = items->visualRect(index).center();
        QHelpEvent event(QEvent::ToolTip, place, items->viewport()->mapToGlobal(place));
        QApplication::sendEvent(items->viewport(), &event);
    }
    return stage.picture();
}

} // namespace

Pictures mainWindowPictures()
{
    return {{u"01-main"_s, &atRest},
            {u"02-main-notice"_s, &withNotice},
            {u"03-main-report-success"_s, &started},
            {u"04-main-report-warning-expanded"_s, &startedWithGaps},
            {u"05-main-accessibility"_s, &withoutPermission},
            {u"06-main-starting"_s, &starting},
            {u"07-main-no-items"_s, &withoutItems},
            {u"08-main-empty"_s, &empty},
            {u"12-main-reorder-drag"_s, &reordering},
            {u"13-main-minimum-900x620"_s, &atMinimum},
            {u"14-main-tooltips"_s, &withTooltip}};
}

} // namespace trovell::screenshots
