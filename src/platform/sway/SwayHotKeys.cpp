// SPDX-License-Identifier: MIT

#include "platform/sway/SwayHotKeys.h"

#include "platform/sway/SwayKeyBindings.h"

#include <QPromise>

namespace trovell {

SwayHotKeys::SwayHotKeys(const QByteArray& socketPath) : m_worker(std::make_unique<QObject>())
{
    m_worker->moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(m_worker.get(), [this, socketPath] {
        m_bindings = std::make_unique<SwayKeyBindings>(socketPath);
    });
}

SwayHotKeys::~SwayHotKeys()
{
    QMetaObject::invokeMethod(m_worker.get(), [this] {
        m_bindings.reset();
        m_thread.quit();
    });
    m_thread.wait();
}

QFuture<QList<quint32>> SwayHotKeys::setHotKeys(const QList<HotKey>& hotKeys, PressHandler handler)
{
    const auto deliver = [this, handler = std::move(handler)](quint32 number) {
        QMetaObject::invokeMethod(&m_context, [handler, number] { handler(number); });
    };
    const auto promise = std::make_shared<QPromise<QList<quint32>>>();
    promise->start();
    QMetaObject::invokeMethod(m_worker.get(), [this, hotKeys, deliver, promise] {
        promise->addResult(m_bindings->replace(hotKeys, deliver));
        promise->finish();
    });
    return promise->future();
}

} // namespace trovell
