// SPDX-License-Identifier: MIT
//
// The sheets that read the open windows.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/main/MainWorkspaceView.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

using Kind = WorkspaceSheetRequest::Kind;

void openSheet(Stage& stage, Kind kind)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    auto* main = stage.window().findChild<MainWorkspaceView*>();
    main->present({.kind = kind, .workspace = &stage.workspace(int(Workspace::writing))});
    Stage::settle();
}

QImage asking(Stage& stage)
{
    stage.windows->trusted = false;
    openSheet(stage, Kind::captureCurrent);
    return stage.picture();
}

QImage loading(Stage& stage)
{
    stage.windows->isSilent = true;
    openSheet(stage, Kind::captureCurrent);
    return stage.picture();
}

void openTextEditor(Stage& stage)
{
    stage.desktop().openWindow(Application::textEditor, u"Chapter 4 – Draft.md"_s, 0,
                               {0.02, 0.04, 0.5, 0.92});
    stage.desktop().openWindow(Application::textEditor, u"Notes.md"_s, 1, {0.03, 0.54, 0.46, 0.4});
}

QImage creating(Stage& stage)
{
    stage.desktop().openWritingWindows();
    openSheet(stage, Kind::captureCurrent);
    stage.press(u"Untitled Window"_s);
    stage.press(u"book"_s);
    stage.press(u"indigo"_s);
    stage.type(u"Workspace name"_s, u"Writing Retreat"_s);
    return stage.picture();
}

QImage updating(Stage& stage)
{
    openTextEditor(stage);
    stage.desktop().openWindow(Application::firefox, u"Reference – Firefox"_s, 0,
                               {0.535, 0.04, 0.445, 0.92});
    openSheet(stage, Kind::updateLayout);
    stage.press(u"Keep saved position for Document Viewer"_s);
    return stage.picture();
}

QImage appsOnly(Stage& stage)
{
    stage.windows->trusted = false;
    for (const Application application :
         {Application::music, Application::documentViewer, Application::terminal})
        stage.desktop().run(application);
    openSheet(stage, Kind::captureCurrent);
    stage.press(u"Continue with Apps Only"_s);
    stage.press(u"music.note"_s);
    stage.press(u"purple"_s);
    stage.pressLast(u"Add as launch item"_s);
    stage.type(u"Workspace name"_s, u"Studio Morning"_s);
    return stage.picture();
}

QImage failed(Stage& stage)
{
    openSheet(stage, Kind::captureCurrent);
    return stage.picture();
}

QImage updatingWithNoneOpen(Stage& stage)
{
    openSheet(stage, Kind::updateLayout);
    stage.press(u"Keep saved position for Document Viewer"_s);
    return stage.picture();
}

QImage savingAsNew(Stage& stage)
{
    openTextEditor(stage);
    openSheet(stage, Kind::saveAsNew);
    stage.type(u"Workspace name"_s, u"Writing Variant"_s);
    return stage.picture();
}

} // namespace

Pictures capturePictures()
{
    return {{u"30-capture-permission"_s, &asking},
            {u"31-capture-loading"_s, &loading},
            {u"32-capture-loaded-create"_s, &creating},
            {u"33-capture-loaded-update"_s, &updating},
            {u"34-capture-apps-only"_s, &appsOnly},
            {u"35-capture-failed"_s, &failed},
            {u"36-capture-update-none-open"_s, &updatingWithNoneOpen},
            {u"37-capture-save-as-new"_s, &savingAsNew}};
}

} // namespace trovell::screenshots
