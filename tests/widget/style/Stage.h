// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/VisualStyle.h"

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>

namespace trovell {

/// A visual style installed without animation; one per test program.
struct StillStyle : VisualStyle {
    StillStyle()
    {
        setAnimationReduced(true);
        install(*qApp);
    }
};

/// A window with the controls a test works on, one below the other.
class Stage : public QWidget {
public:
    Stage()
    {
        m_column = new QVBoxLayout(this);
        m_column->setContentsMargins(24, 24, 24, 24);
        m_column->setSpacing(12);
    }

    template <typename Control> Control* add(Control* control)
    {
        m_column->addWidget(control);
        return control;
    }

    /// Shows the window and waits until it takes keys.
    void open(const QSize& size = {400, 300})
    {
        m_column->addStretch();
        resize(size);
        show();
        activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }

private:
    QVBoxLayout* m_column;
};

/// The colour a widget shows at a place, in logical pixels.
inline QColor shownColor(QWidget& widget, const QPoint& place)
{
    const QPixmap picture = widget.grab();
    return picture.toImage().pixelColor(place * picture.devicePixelRatio());
}

} // namespace trovell
