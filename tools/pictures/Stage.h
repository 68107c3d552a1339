// SPDX-License-Identifier: MIT
//
// The program with sample data, worked by real clicks and photographed with everything that lies
// over its window. Main thread.
#pragma once

#include "pictures/SampleDesktop.h"
#include "views/support/ViewFixture.h"

#include <QtTest>
#include <QtWidgets>

namespace trovell {

using namespace Qt::StringLiterals;
class RowList;
class Sheet;
class WorkspaceSidebarList;
} // namespace trovell

namespace trovell::screenshots {

struct Look {
    Appearance appearance = Appearance::light;
    /// Pictures are taken in it; until then everything is in English.
    QString language = u"en"_s;
    QSize windowSize = {1180, 760};
};

class Stage : public test::ViewFixture {
public:
    explicit Stage(const Look& look);
    ~Stage();

    [[nodiscard]] SampleDesktop& desktop() { return m_desktop; }
    [[nodiscard]] TrovellWorkspace& workspace(int row) { return *context().workspaces().at(row); }

    /// The main window over what is stored by now, with the workspace of that row selected.
    void openMainWindow(int row = 0);
    [[nodiscard]] WorkspaceSidebarList& sidebar();
    void setTrusted(bool isTrusted);
    /// Lets the time go by that the windows may take.
    void finishLaunch();

    /// Clicks the visible button with that text or accessible name.
    void press(QWidget& root, const QString& text);
    /// The same in the frontmost sheet, or the main window when there is none.
    void press(const QString& text) { press(front(), text); }
    /// The same with the lowest of several such buttons.
    void pressLast(const QString& text);
    /// Types into the text field that has that name.
    void type(const QString& field, const QString& text);
    /// Opens the menu of that button and makes the row of that number current.
    void openMenu(const QString& button, int row);

    /// The frontmost sheet or the main window.
    [[nodiscard]] QWidget& front();
    /// Lets workers and everything that is posted come to their end.
    static void settle();

    /// The window and all that lies over it.
    [[nodiscard]] QImage picture(QWidget& window);
    [[nodiscard]] QImage picture() { return picture(window()); }
    /// The painted box of the sheet, and all that lies over it.
    [[nodiscard]] QImage pictureOfSheet(Sheet& sheet);
    /// As `picture`, while row `from` hangs `offset` beside the middle of row `to`.
    [[nodiscard]] QImage pictureOfDrag(RowList& list, int from, int to, const QPoint& offset);
    /// As `picture`, while something is still going on.
    [[nodiscard]] QImage pictureNow(QWidget& window);

private:
    const Look m_look;
    SampleDesktop m_desktop;
};

} // namespace trovell::screenshots
