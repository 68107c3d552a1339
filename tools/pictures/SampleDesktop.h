// SPDX-License-Identifier: MIT
//
// What the pictures show: workspaces, the applications they use and the windows that are open.
// Main thread.
#pragma once

#include "display/DisplaySnapshot.h"

#include <QRectF>
#include <QString>

namespace trovell {
class TrovellWorkspace;
} // namespace trovell
namespace trovell::test {
class ViewFixture;
} // namespace trovell::test

namespace trovell::screenshots {

enum class Application { textEditor, firefox, files, documentViewer, music, terminal };

enum class Workspace {
    writing,
    clientReview,
    musicPractice,
    siteBuild,
    fieldSketches,
    homeNetwork,
    sundayAdmin
};

/// A display of 27 inches, which is the main one, and a smaller one beside it.
class SampleDesktop {
public:
    /// Installs the applications; nothing is stored and nothing runs yet.
    explicit SampleDesktop(test::ViewFixture& fixture);

    /// All workspaces, in the order of their enumeration; the one of the home network without
    /// its items if so wanted.
    void storeWorkspaces(bool isHomeNetworkEmpty = false);

    /// The application runs with a window of that title. The place is a part of the display of
    /// that number, counted from its upper left corner.
    void openWindow(Application application, const QString& title, int display,
                    const QRectF& place);
    /// It runs without a window.
    void run(Application application);
    /// Those that the workspace for writing was saved from.
    void openWritingWindows();

private:
    /// What a saved window has to say beside its place.
    struct Remembered {
        std::optional<QString> desktop = {};
        std::optional<QString> states = {};
    };

    void addApplication(TrovellWorkspace& workspace, Application application);
    void addFile(TrovellWorkspace& workspace, const QString& name);
    void addFolder(TrovellWorkspace& workspace, const QString& name);
    void addLink(TrovellWorkspace& workspace, const QString& host);
    void addPlacement(TrovellWorkspace& workspace, Application application, const QString& title,
                      int display, const QRectF& place, const Remembered& remembered);
    void fillWriting(TrovellWorkspace& workspace);
    void fillClientReview(TrovellWorkspace& workspace);
    void fillMusicPractice(TrovellWorkspace& workspace);

    test::ViewFixture& m_fixture;
};

} // namespace trovell::screenshots
