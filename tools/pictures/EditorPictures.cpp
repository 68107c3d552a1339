// The sheet in which a workspace is made or changed, and those over it.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/style/Picker.h"
#include "views/style/ScrollArea.h"
#include "views/workspace/EditorItemList.h"

#include <QScrollBar>

namespace trovell::screenshots {

namespace {

void openEditor(Stage& stage)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    stage.press(u"Edit"_qs);
}

void addItem(Stage& stage, int kind)
{
    stage.openMenu(u"Add Item"_qs, kind);
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

QImage editingNew(Stage& stage)
{
    stage.desktop().storeWorkspaces();
    stage.openMainWindow();
    stage.openMenu(u"Add Workspace"_qs, 0);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    Stage::settle();
    stage.openMenu(u"Add Item"_qs, 0);
    return stage.picture();
}

QImage addingWebLink(Stage& stage)
{
    openEditor(stage);
    addItem(stage, 3);
    QTest::keyClicks(stage.front().focusWidget(), u"wiki.local"_qs);
    return stage.picture();
}

QImage reviewing(Stage& stage)
{
    stage.desktop().openWritingWindows();
    openEditor(stage);
    stage.press(u"Capture Current Layout"_qs);
    stage.press(u"Untitled Window"_qs);
    stage.press(u"Files"_qs);
    return stage.picture();
}

QImage refusing(Stage& stage)
{
    openEditor(stage);
    stage.front().findChild<Picker*>()->setCurrentIndex(2);
    stage.press(u"Save"_qs);
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
    QTest::keyClicks(stage.front().focusWidget(), u"spreadsheet"_qs);
    return stage.picture();
}

QImage reordering(Stage& stage)
{
    openEditor(stage);
    auto& list = *stage.front().findChild<EditorItemList*>();
    const int rowHeight = list.height() / int(list.items().size());
    const auto send = [&list](QEvent::Type type, const QPoint& place) {
        QMouseEvent event(type, place, list.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&list, &event);
    };
    send(QEvent::MouseButtonPress, {20, rowHeight * 3 + rowHeight / 2});
    send(QEvent::MouseMove, {40, rowHeight * 2});
    send(QEvent::MouseMove, {60, rowHeight + rowHeight / 2});
    return stage.picture();
}

} // namespace

Pictures editorPictures()
{
    return {{u"20-editor"_qs, &editing},
            {u"21-editor-scrolled"_qs, &editingBelow},
            {u"22-editor-new"_qs, &editingNew},
            {u"23-editor-add-web-link"_qs, &addingWebLink},
            {u"24-editor-capture-review"_qs, &reviewing},
            {u"25-editor-alert-shortcut"_qs, &refusing},
            {u"26-editor-application-chooser"_qs, &choosingApplications},
            {u"27-editor-application-chooser-none"_qs, &findingNoApplication},
            {u"28-editor-reorder-drag"_qs, &reordering}};
}

} // namespace trovell::screenshots
