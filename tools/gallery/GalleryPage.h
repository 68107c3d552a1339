// SPDX-License-Identifier: MIT

#pragma once

#include "views/style/VisualStyle.h"

#include <QWidget>

class QFocusFrame;

namespace trovell::gallery {

/// A page of the component pictures: cards at fixed places, controls put into states that a person
/// would have to produce one after the other.
class GalleryPage : public QWidget {
    Q_OBJECT

public:
    GalleryPage(VisualStyle& visual, const QSize& size);

    /// Grabs the page with all its forced focus rings.
    QPixmap picture();

protected:
    enum class State { rest, hover, pressed, focus, disabled };

    VisualStyle& visual() const { return m_visual; }
    QWidget* addCard(const QRect& place, const QString& heading);
    void addText(QWidget* parent, const QPoint& place, const QString& text, TextRole role,
                 ColorToken color);
    /// Puts a control at a place and into a state.
    void add(QWidget* parent, QWidget* control, const QPoint& place, State state = State::rest);

private:
    VisualStyle& m_visual;
};

QWidget* makeComponentsPage(VisualStyle& visual);
QWidget* makeSymbolsPage(VisualStyle& visual);
QWidget* makePalettePage(VisualStyle& visual);
QWidget* makeSettingsPage(VisualStyle& visual);

} // namespace trovell::gallery
