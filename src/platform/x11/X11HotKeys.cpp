// SPDX-License-Identifier: MIT

#include "platform/x11/X11HotKeys.h"

#include "platform/x11/X11KeyGrabs.h"

#include <QPromise>

namespace trovell {

X11HotKeys::X11HotKeys(const QByteArray& displayName) : m_worker(std::make_unique<QObject>())
{
    m_worker->moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(m_worker.get(), [this, displayName] {
        m_grabs = std::make_unique<X11KeyGrabs>(displayName);
    });
}

X11HotKeys::~X11HotKeys()
{
    QMetaObject::invokeMethod(m_worker.get(), [this] {
        m_grabs.reset();
        m_thread.quit();
    });
    m_thread.wait();
}

QFuture<QList<quint32>> X11HotKeys::setHotKeys(const QList<HotKey>& hotKeys, PressHandler handler)
{
    const auto deliver = [this, handler = std::move(handler)](quint32 number) {
        QMetaObject::invokeMethod(&m_context, [handler, number] { handler(number); });
    };
    const auto promise = std::make_shared<QPromise<QList<quint32>>>();
    promise->start();
    QMetaObject::invokeMethod(m_worker.get(), [this, hotKeys, deliver, promise] {
        promise->addResult(m_grabs->replace(hotKeys, deliver));
        promise->finish();
    });
    return promise->future();
}

} // namespace trovell
