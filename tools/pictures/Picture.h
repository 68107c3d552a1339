// SPDX-License-Identifier: MIT
//
// A surface in one of its states, and how to get there. Main thread.
#pragma once

#include <QImage>
#include <QString>

#include <functional>

namespace trovell::screenshots {

class Stage;

struct Picture {
    /// Of its file, without the look and the ending.
    QString name;
    /// The stage is new and belongs to this picture alone.
    std::function<QImage(Stage&)> take;
};

using Pictures = QList<Picture>;

[[nodiscard]] Pictures mainWindowPictures();
[[nodiscard]] Pictures menuPictures();
[[nodiscard]] Pictures editorPictures();
[[nodiscard]] Pictures capturePictures();
[[nodiscard]] Pictures alertPictures();
[[nodiscard]] Pictures onboardingPictures();
[[nodiscard]] Pictures settingsPictures();
[[nodiscard]] Pictures trayPictures();
[[nodiscard]] Pictures updatePictures();

} // namespace trovell::screenshots
