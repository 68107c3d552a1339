// SPDX-License-Identifier: MIT

#pragma once

#include <QMainWindow>

namespace trovell {

/// A window of its own that says when the user has closed it, and that has the keys every window
/// has: Ctrl+W closes it. Main thread.
class SceneWindow : public QMainWindow {
    Q_OBJECT

public:
    SceneWindow();

Q_SIGNALS:
    /// The window manager has put the window on the screen.
    void appeared();
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace trovell
