// SPDX-License-Identifier: MIT

#include "GalleryPage.h"

#include "views/style/TextLabel.h"
#include "views/style/TrovellCardModifier.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEnterEvent>
#include <QFocusFrame>

namespace trovell::gallery {

GalleryPage::GalleryPage(VisualStyle& visual, const QSize& size) : m_visual(visual)
{
    setFixedSize(size);
}

QPixmap GalleryPage::picture()
{
    QApplication::processEvents();
    return grab();
}

QWidget* GalleryPage::addCard(const QRect& place, const QString& heading)
{
    auto* card = new TrovellCardModifier(m_visual, this);
    card->setGeometry(place);
    addText(card, {20, 20}, heading, TextRole::headline, ColorToken::labelPrimary);
    return card;
}

void GalleryPage::addText(QWidget* parent, const QPoint& place, const QString& text, TextRole role,
                          ColorToken color)
{
    add(parent, new TextLabel(m_visual, text, role, color), place);
}

void GalleryPage::add(QWidget* parent, QWidget* control, const QPoint& place, State state)
{
    control->setParent(parent);
    control->move(place);
    control->adjustSize();
    control->show();
    if (state == State::hover) {
        QEnterEvent enter({}, {}, {});
        QApplication::sendEvent(control, &enter);
    } else if (state == State::pressed) {
        if (auto* button = qobject_cast<QAbstractButton*>(control))
            button->setDown(true);
    } else if (state == State::focus) {
        auto* frame = new QFocusFrame(parent);
        frame->setWidget(control);
    } else if (state == State::disabled) {
        control->setEnabled(false);
    }
}

} // namespace trovell::gallery
