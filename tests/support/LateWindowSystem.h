// SPDX-License-Identifier: MIT
//
// A scripted desktop that answers everything late, by what is true by then, and whose programs may
// do something in the middle. Main thread.
#pragma once

#include "support/FakeWindowSystem.h"

#include <QObject>
#include <QPromise>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace trovell {

class LateWindowSystem final : public WindowSystem {
public:
    explicit LateWindowSystem(FakeWindowSystem& desktop) : m_desktop(desktop) {}

    /// Called before windows are placed.
    std::function<void()> onPlace = [] {};

    [[nodiscard]] QFuture<DesktopSnapshot> ask(const DesktopQuestion& question) override
    {
        return later([this, question] { return m_desktop.read(question); });
    }
    [[nodiscard]] QFuture<WindowControl> requestControl() override
    {
        return later([this] { return m_desktop.read({}).control; });
    }
    [[nodiscard]] QFuture<QList<FrameOutcome>>
    setFrames(const QList<FrameRequest>& requests) override
    {
        return later([this, requests] {
            onPlace();
            return m_desktop.place(requests);
        });
    }
    QFuture<void> activate(const QStringList& identifiers) override
    {
        const auto activating = [this, identifiers] {
            m_desktop.activate(identifiers);
            return true;
        };
        return later(activating).then([](bool) {});
    }
    QFuture<void> restack(const QList<WindowId>& backToFront) override
    {
        return m_desktop.restack(backToFront);
    }
    QFuture<void> showVirtualDesktop(int index) override
    {
        return m_desktop.showVirtualDesktop(index);
    }
    void activateOwnWindow(quintptr) override {}

private:
    template <class Answer> auto later(Answer answer) -> QFuture<decltype(answer())>
    {
        constexpr std::chrono::milliseconds delay{50};
        auto promise = std::make_shared<QPromise<decltype(answer())>>();
        promise->start();
        QTimer::singleShot(delay, &m_context, [promise, answer] {
            promise->addResult(answer());
            promise->finish();
        });
        return promise->future();
    }

    FakeWindowSystem& m_desktop;
    QObject m_context;
};

} // namespace trovell
