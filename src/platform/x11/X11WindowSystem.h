// SPDX-License-Identifier: MIT
//
// Window control on an X11 desktop, through a window manager that keeps to EWMH 1.5. Everything
// that waits for the server does so on threads of its own. When the server goes away everything
// answers that there is nothing.
#pragma once

#include "platform/desktop/ApplicationIdentity.h"
#include "platform/desktop/WindowClaims.h"
#include "platform/x11/X11Connection.h"
#include "windows/WindowSystem.h"

#include <QByteArray>
#include <QMutex>
#include <QThreadPool>

#include <memory>

namespace trovell {

class X11Reader;

class X11WindowSystem final : public WindowSystem {
public:
    /// Begins to connect. An empty display name means that of the environment. `identify` and
    /// `background` may be empty; they are called on a worker.
    X11WindowSystem(const QByteArray& displayName, ApplicationIdentifier identify,
                    BackgroundApplications background);
    /// Waits for what is under way, and for up to a second while windows that were just placed are
    /// still watched.
    ~X11WindowSystem() override;

    [[nodiscard]] QFuture<DesktopSnapshot> ask(const DesktopQuestion& question) override;
    /// There is nobody to ask: an X11 desktop either has such a window manager or it has not.
    [[nodiscard]] QFuture<WindowControl> requestControl() override;
    [[nodiscard]] QFuture<QList<FrameOutcome>>
    setFrames(const QList<FrameRequest>& requests) override;
    QFuture<void> activate(const QStringList& identifiers) override;
    QFuture<void> restack(const QList<WindowId>& backToFront) override;
    QFuture<void> showVirtualDesktop(int index) override;
    void activateOwnWindow(quintptr nativeWindow) override;

    /// How often the reading operations have waited for the server so far. Waits for those that
    /// were asked for.
    [[nodiscard]] int roundTripCount();

private:
    using Reader = std::shared_ptr<X11Reader>;

    template <class Operation> auto onReadingThread(Operation operation);
    [[nodiscard]] QList<FrameOutcome> place(const QList<FrameRequest>& requests);

    WindowClaims m_claims;
    QFuture<Reader> m_reader;
    /// Who waits for an answer that was not begun yet works it out beside the reading thread.
    QMutex m_reading;
    // Last, so that they end first.

    /// One thread, which serves the questions in their order.
    QThreadPool m_readingThread;
    /// Roomy: a pass mostly waits for windows to settle, and one application that does not answer
    /// must not keep the others waiting for a thread.
    QThreadPool m_passes;
    /// For the watch over windows that were just placed.
    QThreadPool m_guards;
};

} // namespace trovell
