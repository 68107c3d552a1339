// SPDX-License-Identifier: MIT
//
// What is seen while sheets come, stay and go. Main thread.
#pragma once

#include "views/style/Fade.h"
#include "views/style/Picture.h"

#include <QPixmap>

namespace trovell {

class Sheet;
class VisualStyle;

/// The veil over a window that a sheet blocks: a child above everything else in the window, as
/// large as the window's content (of a sheet: its box, dimmed less) and following its size.
/// Owned by the window until `dismiss`, after which it fades and deletes itself.
class Scrim : public Picture {
    Q_OBJECT

public:
    Scrim(const VisualStyle& visual, QWidget& window);

    void appear();
    /// Fades out together with `ghost`, a picture of the sheet that has just closed whose upper
    /// left corner was at `screenPosition`. It takes no clicks meanwhile.
    void dismiss(const QPixmap& ghost, const QPoint& screenPosition);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cover();

    const VisualStyle& m_visual;
    QWidget& m_window;
    Fade m_fadeIn;
    Fade m_fadeOut;
    QPixmap m_ghost;
    QPoint m_ghostPosition;
};

/// The way in of a sheet: lies over all of it, shows a picture of it growing and fading in, and
/// deletes itself when that is done. The live sheet below already takes keys.
class SheetCurtain : public QWidget {
    Q_OBJECT

public:
    SheetCurtain(const VisualStyle& visual, Sheet& sheet);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap m_picture;
    double m_progress = 0;
};

} // namespace trovell
