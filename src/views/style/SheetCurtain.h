// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QWidget>

namespace trovell {

class Sheet;
class VisualStyle;

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
