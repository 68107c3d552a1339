// SPDX-License-Identifier: MIT

#include "views/style/ScrollArea.h"

#include <QApplication>

namespace trovell {

namespace {

// Room for the focus ring and a little air.
constexpr int focusMargin = 12;

} // namespace

ScrollArea::ScrollArea(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { showFocused(now); });
}

ScrollArea::~ScrollArea()
{
    // What it holds goes after this part of it, and gives the focus away then.
    disconnect(qApp, nullptr, this, nullptr);
}

void ScrollArea::setContent(QWidget* content)
{
    setWidget(content);
    content->setAutoFillBackground(false);
}

void ScrollArea::showFocused(QWidget* focused)
{
    if (focused && widget() && widget()->isAncestorOf(focused))
        ensureWidgetVisible(focused, 0, focusMargin);
}

} // namespace trovell
