// SPDX-License-Identifier: MIT

#include "app/scenes/SceneWindow.h"

#include <QCloseEvent>
#include <QShortcut>
#include <QWindow>

namespace trovell {

SceneWindow::SceneWindow()
{
    auto* close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
}

void SceneWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    windowHandle()->installEventFilter(this);
}

bool SceneWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == windowHandle() && event->type() == QEvent::Expose &&
        windowHandle()->isExposed()) {
        windowHandle()->removeEventFilter(this);
        Q_EMIT appeared();
    }
    return QMainWindow::eventFilter(watched, event);
}

void SceneWindow::closeEvent(QCloseEvent* event)
{
    QMainWindow::closeEvent(event);
    if (event->isAccepted())
        Q_EMIT closed();
}

} // namespace trovell
