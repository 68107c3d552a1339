// SPDX-License-Identifier: MIT

#include "platform/sway/SwayWindowSystem.h"

#include "platform/sway/SwayFrames.h"

#include <QtConcurrentRun>

namespace trovell {

SwayWindowSystem::SwayWindowSystem(const QByteArray& socketPath, ApplicationIdentifier identify,
                                   BackgroundApplications background, X11WindowQuestion askX11)
    : m_socketPath(socketPath),
      m_reader(std::make_shared<SwayReader>(socketPath, std::move(identify), std::move(background),
                                            std::move(askX11)))
{
    m_readingThread.setMaxThreadCount(1);
    // Ending it would wake an idle process.
    m_readingThread.setExpiryTimeout(-1);
    m_passes.setMaxThreadCount(16);
}

SwayWindowSystem::~SwayWindowSystem()
{
    m_readingThread.waitForDone();
    m_passes.waitForDone();
}

template <class Operation> auto SwayWindowSystem::onReadingThread(Operation operation)
{
    return QtConcurrent::run(&m_readingThread, [this, operation] {
        const QMutexLocker lock(&m_reading);
        return operation(*m_reader);
    });
}

QFuture<DesktopSnapshot> SwayWindowSystem::ask(const DesktopQuestion& question)
{
    return onReadingThread([question](SwayReader& reader) { return reader.answer(question); });
}

QFuture<WindowControl> SwayWindowSystem::requestControl()
{
    return onReadingThread([](SwayReader& reader) { return reader.answer({}).control; });
}

QFuture<QList<FrameOutcome>> SwayWindowSystem::setFrames(const QList<FrameRequest>& requests)
{
    return QtConcurrent::run(&m_passes, [this, requests] {
        SwayConnection connection(m_socketPath);
        return setSwayFrames(requests, connection, m_tiling);
    });
}

QFuture<void> SwayWindowSystem::activate(const QStringList& identifiers)
{
    return onReadingThread([identifiers](SwayReader& reader) { reader.activate(identifiers); });
}

QFuture<void> SwayWindowSystem::restack(const QList<WindowId>& backToFront)
{
    return onReadingThread([backToFront](SwayReader& reader) { reader.restack(backToFront); });
}

QFuture<void> SwayWindowSystem::showVirtualDesktop(int index)
{
    return onReadingThread([index](SwayReader& reader) { reader.showVirtualDesktop(index); });
}

void SwayWindowSystem::activateOwnWindow(quintptr nativeWindow)
{
    onReadingThread([nativeWindow](SwayReader& reader) { reader.activateOwnWindow(nativeWindow); });
}

} // namespace trovell
