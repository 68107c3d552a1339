// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowSystem.h"

#include "platform/x11/X11FrameSetter.h"
#include "platform/x11/X11Reader.h"
#include "platform/x11/X11WindowId.h"

#include <QtConcurrentRun>

#include <cmath>

namespace trovell {

namespace {

bool isFinite(const QRectF& frame)
{
    return std::isfinite(frame.x()) && std::isfinite(frame.y()) && std::isfinite(frame.width()) &&
           std::isfinite(frame.height());
}

} // namespace

X11WindowSystem::X11WindowSystem(const QByteArray& displayName, ApplicationIdentifier identify,
                                 BackgroundApplications background)
{
    m_readingThread.setMaxThreadCount(1);
    // Ending it would wake an idle process.
    m_readingThread.setExpiryTimeout(-1);
    m_passes.setMaxThreadCount(64);
    // They only sleep; one for every application of a large workspace, and then some.
    m_guards.setMaxThreadCount(64);
    m_reader = QtConcurrent::run(&m_readingThread, [=] {
        return std::make_shared<X11Reader>(displayName, identify, background);
    });
}

X11WindowSystem::~X11WindowSystem()
{
    m_readingThread.waitForDone();
    m_passes.waitForDone();
    m_guards.waitForDone();
}

template <class Operation> auto X11WindowSystem::onReadingThread(Operation operation)
{
    // The reader was begun on the same thread, so it is there by then.
    return QtConcurrent::run(&m_readingThread, [this, operation] {
        const QMutexLocker lock(&m_reading);
        return operation(*m_reader.result());
    });
}

QFuture<DesktopSnapshot> X11WindowSystem::ask(const DesktopQuestion& question)
{
    return onReadingThread([question](X11Reader& reader) { return reader.answer(question); });
}

QFuture<WindowControl> X11WindowSystem::requestControl()
{
    return onReadingThread([](X11Reader& reader) { return reader.answer({}).control; });
}

QFuture<QList<FrameOutcome>> X11WindowSystem::setFrames(const QList<FrameRequest>& requests)
{
    return QtConcurrent::run(&m_passes, [this, requests] { return place(requests); });
}

QList<FrameOutcome> X11WindowSystem::place(const QList<FrameRequest>& requests)
{
    const auto now = std::chrono::steady_clock::now();
    QList<FramePass::Request> settable;
    for (const FrameRequest& request : requests) {
        if (isFinite(request.frame))
            settable.append({request.window,
                             {frameFromPixels(pixelsFromFrame(request.frame)), request.states},
                             request.virtualDesktop,
                             isYoung(request.window, now)});
    }
    const X11Server server = m_reader.result()->connection().server();
    const auto setter = std::make_shared<X11FrameSetter>(server, settable, m_claims);
    QList<FrameOutcome> outcomes = setter->run();
    if (setter->hasWindowsToGuard())
        m_guards.start([setter] { setter->guard(); });
    for (qsizetype index = 0; index < requests.size(); ++index) {
        if (!isFinite(requests.at(index).frame))
            outcomes.insert(index, FrameOutcome::refused);
    }
    return outcomes;
}

QFuture<void> X11WindowSystem::activate(const QStringList& identifiers)
{
    return onReadingThread([identifiers](X11Reader& reader) { reader.activate(identifiers); });
}

QFuture<void> X11WindowSystem::restack(const QList<WindowId>& backToFront)
{
    return onReadingThread([backToFront](X11Reader& reader) { reader.restack(backToFront); });
}

QFuture<void> X11WindowSystem::showVirtualDesktop(int index)
{
    return onReadingThread([index](X11Reader& reader) { reader.showVirtualDesktop(index); });
}

void X11WindowSystem::activateOwnWindow(quintptr nativeWindow)
{
    const auto window = static_cast<xcb_window_t>(nativeWindow);
    onReadingThread([window](X11Reader& reader) { reader.activateWindow(window); });
}

int X11WindowSystem::roundTripCount()
{
    const auto counting =
        onReadingThread([](X11Reader& reader) { return reader.connection().roundTripCount(); });
    return counting.result();
}

} // namespace trovell
