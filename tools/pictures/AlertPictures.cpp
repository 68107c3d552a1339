// SPDX-License-Identifier: MIT
//
// Renaming, and the alerts of the main window.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/main/MainWorkspaceView.h"

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

using Kind = WorkspaceAlertRequest::Kind;

constexpr int renameRow = 3;

void choose(Stage& stage, int row)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    stage.openMenu(u"Workspace Actions"_s, row);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    Stage::settle();
}

QImage renaming(Stage& stage)
{
    choose(stage, renameRow);
    stage.type(u"Workspace name"_s, u"Writing"_s);
    return stage.picture();
}

QImage renamingInVain(Stage& stage)
{
    choose(stage, renameRow);
    stage.refuseSaving();
    stage.press(u"Rename"_s);
    return stage.picture();
}

QImage asking(Stage& stage, Kind kind)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    auto* main = stage.window().findChild<MainWorkspaceView*>();
    main->present(
        WorkspaceAlertRequest{.kind = kind, .workspace = &stage.workspace(0), .reason = {}});
    return stage.picture();
}

} // namespace

Pictures alertPictures()
{
    return {
        {u"40-rename"_s, &renaming},
        {u"41-alert-delete"_s, [](Stage& stage) { return asking(stage, Kind::deleteWorkspace); }},
        {u"42-alert-clear-layout"_s, [](Stage& stage) { return asking(stage, Kind::clearLayout); }},
        {u"43-alert-error"_s, [](Stage& stage) { return asking(stage, Kind::error); }},
        {u"44-alert-rename-error"_s, &renamingInVain}};
}

} // namespace trovell::screenshots
