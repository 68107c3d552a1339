// SPDX-License-Identifier: MIT
//
// Stands in on a desktop whose windows cannot be controlled: answers at once that there is no
// support, nothing runs and no display is known. Launch items still open.
#pragma once

#include "support/ReadyFuture.h"
#include "windows/WindowSystem.h"

namespace trovell {

class NullWindowSystem final : public WindowSystem {
public:
    [[nodiscard]] QFuture<DesktopSnapshot> ask(const DesktopQuestion&) override
    {
        return readyFuture(DesktopSnapshot());
    }
    [[nodiscard]] QFuture<WindowControl> requestControl() override
    {
        return readyFuture(WindowControl::unsupported);
    }
    [[nodiscard]] QFuture<QList<FrameOutcome>>
    setFrames(const QList<FrameRequest>& requests) override
    {
        return readyFuture(QList<FrameOutcome>(requests.size(), FrameOutcome::refused));
    }
    QFuture<void> activate(const QStringList&) override { return readyFuture(); }
    QFuture<void> restack(const QList<WindowId>&) override { return readyFuture(); }
    QFuture<void> showVirtualDesktop(int) override { return readyFuture(); }
    void activateOwnWindow(quintptr) override {}
};

} // namespace trovell
