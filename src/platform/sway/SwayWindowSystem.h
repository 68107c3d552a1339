// SPDX-License-Identifier: MIT
//
// Window control under sway and i3, which share one IPC. Windows that float are placed exactly;
// windows that are tiled stay so, and get their workspace, order and, as far as the layout allows,
// size back. Workspaces are the virtual desktops (`SwayWorkspaces`), the scratchpad holds minimized
// windows. Everything that waits does so on threads of its own.
#pragma once

#include "platform/sway/SwayReader.h"
#include "platform/sway/SwayTiling.h"
#include "windows/WindowSystem.h"

#include <QMutex>
#include <QThreadPool>

#include <memory>

namespace trovell {

class SwayWindowSystem final : public WindowSystem {
public:
    /// The functions may be empty; they are called on a worker.
    SwayWindowSystem(const QByteArray& socketPath, ApplicationIdentifier identify,
                     BackgroundApplications background, X11WindowQuestion askX11);
    /// Waits for what is under way.
    ~SwayWindowSystem() override;

    [[nodiscard]] QFuture<DesktopSnapshot> ask(const DesktopQuestion& question) override;
    [[nodiscard]] QFuture<WindowControl> requestControl() override;
    [[nodiscard]] QFuture<QList<FrameOutcome>>
    setFrames(const QList<FrameRequest>& requests) override;
    QFuture<void> activate(const QStringList& identifiers) override;
    QFuture<void> restack(const QList<WindowId>& backToFront) override;
    QFuture<void> showVirtualDesktop(int index) override;
    void activateOwnWindow(quintptr nativeWindow) override;

private:
    template <class Operation> auto onReadingThread(Operation operation);

    QByteArray m_socketPath;
    /// Used on the reading thread only.
    std::shared_ptr<SwayReader> m_reader;
    SwayTiling m_tiling;
    /// Who waits for an answer that was not begun yet works it out beside the reading thread.
    QMutex m_reading;
    // Last, so that they end first.

    /// One thread, which serves the questions in their order.
    QThreadPool m_readingThread;
    QThreadPool m_passes;
};

} // namespace trovell
