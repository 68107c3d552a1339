// SPDX-License-Identifier: MIT

#include "views/main/SidebarSplitter.h"

namespace trovell {

namespace {

constexpr int leastWidth = 220;
constexpr int idealWidth = 245;
constexpr int greatestWidth = 300;
/// On each side of the hairline: 8 with it.
constexpr int grabBefore = 4;
constexpr int grabAfter = 3;

/// QSplitter lays out by the contents of a handle; the margins lie over its neighbours, react to
/// the mouse and are not painted.
class WideHandle : public QSplitterHandle {
public:
    explicit WideHandle(QSplitter* splitter) : QSplitterHandle(Qt::Horizontal, splitter)
    {
        setAttribute(Qt::WA_MouseNoMask);
        setContentsMargins(grabBefore, 0, grabAfter, 0);
    }

protected:
    // Not that of QSplitterHandle, which sets margins of its own.
    void resizeEvent(QResizeEvent* event) override
    {
        QWidget::resizeEvent(event);
        setMask(contentsRect());
    }
};

} // namespace

SidebarSplitter::SidebarSplitter(QWidget* sidebar, QWidget* detail, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
{
    sidebar->setMinimumWidth(leastWidth);
    sidebar->setMaximumWidth(greatestWidth);
    addWidget(sidebar);
    addWidget(detail);
    setChildrenCollapsible(false);
    setStretchFactor(0, 0);
    setStretchFactor(1, 1);
    // The hairline is part of the sidebar's width; the rest goes to the detail.
    setSizes({idealWidth - 1, QWIDGETSIZE_MAX / 2});
}

QSplitterHandle* SidebarSplitter::createHandle()
{
    return new WideHandle(this);
}

} // namespace trovell
