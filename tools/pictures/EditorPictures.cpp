// SPDX-License-Identifier: MIT
//
// The sheet in which a workspace is made or changed, and those over it.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/editor/EditorItemList.h"
#include "views/style/Picker.h"
#include "views/style/ScrollArea.h"

#include <QScrollBar>

namespace trovell::screenshots {

using namespace Qt::StringLiterals;

namespace {

void openEditor(Stage& stage)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    stage.press(u"Edit"_s);
}

void addItem(Stage& stage, int kind)
{
    stage.openMenu(u"Add Item"_s, kind);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    Stage::settle();
}

QImage editing(Stage& stage)
{
    openEditor(stage);
    return stage.picture();
}

QImage editingBelow(Stage& stage)
{
    openEditor(stage);
    stage.setTrusted(false);
    Stage::settle();
    QScrollBar* bar = stage.front().findChild<ScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    return stage.picture();
}

QImage editingSavedWindows(Stage& stage)
{
    openEditor(stage);
    QScrollBar* bar = stage.front().findChild<ScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    return stage.picture();
}

QImage choosingHowToOpen(Stage& stage, const QString& item)
{
    openEditor(stage);
    stage.press(u"Options of "_s + item);
    return stage.picture();
}

QImage optionsOfApplication(Stage& stage)
{
    return choosingHowToOpen(stage, u"Firefox"_s);
}

QImage optionsOfFile(Stage& stage)
{
    return choosingHowToOpen(stage, u"Manuscript"_s);
}

QImage editingNew(Stage& stage)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    stage.openMenu(u"Add Workspace"_s, 0);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    Stage::settle();
    stage.openMenu(u"Add Item"_s, 0);
    return stage.picture();
}

QImage addingWebLink(Stage& stage)
{
    openEditor(stage);
    addItem(stage, 3);
    QTest::keyClicks(stage.front().focusWidget(), u"wiki.local"_s);
    return stage.picture();
}

QImage reviewing(Stage& stage)
{
    stage.desktop().openWritingWindows();
    openEditor(stage);
    stage.press(u"Capture Current Layout"_s);
    stage.press(u"Untitled Window"_s);
    stage.press(u"Files"_s);
    return stage.picture();
}

QImage refusing(Stage& stage)
{
    openEditor(stage);
    stage.front().findChild<Picker*>()->setCurrentIndex(2);
    stage.press(u"Save"_s);
    return stage.picture();
}

QImage choosingApplications(Stage& stage)
{
    openEditor(stage);
    addItem(stage, 0);
    QTest::keyClick(stage.front().focusWidget(), Qt::Key_Down);
    return stage.picture();
}

QImage findingNoApplication(Stage& stage)
{
    openEditor(stage);
    addItem(stage, 0);
    QTest::keyClicks(stage.front().focusWidget(), u"spreadsheet"_s);
    return stage.picture();
}

QImage reordering(Stage& stage)
{
    openEditor(stage);
    auto& list = *stage.front().findChild<EditorItemList*>();
    return stage.pictureOfDrag(list, 3, 1, QPoint(40, 0));
}

} // namespace

Pictures editorPictures()
{
    return {{u"20-editor"_s, &editing},
            {u"21-editor-scrolled"_s, &editingBelow},
            {u"22-editor-new"_s, &editingNew},
            {u"23-editor-add-web-link"_s, &addingWebLink},
            {u"24-editor-capture-review"_s, &reviewing},
            {u"25-editor-alert-shortcut"_s, &refusing},
            {u"26-editor-application-chooser"_s, &choosingApplications},
            {u"27-editor-application-chooser-none"_s, &findingNoApplication},
            {u"28-editor-reorder-drag"_s, &reordering},
            {u"29-editor-saved-windows"_s, &editingSavedWindows},
            {u"2a-editor-options-application"_s, &optionsOfApplication},
            {u"2b-editor-options-file"_s, &optionsOfFile}};
}

} // namespace trovell::screenshots
