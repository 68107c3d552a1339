// SPDX-License-Identifier: MIT
//
// Tells the thread sanitizer what Qt guarantees: everything done before a task is started, or a
// call is posted, is visible to it. Qt's library is built without the sanitizer, which therefore
// does not see the locks inside and would report every task as a race.
#if defined(__SANITIZE_THREAD__)

#include <QRunnable>
#include <QThreadPool>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

void carryOut(QRunnable* task)
{
    const bool isOwned = task->autoDelete();
    task->run();
    if (isOwned)
        delete task;
}

class HandedOverTask final : public QRunnable {
public:
    explicit HandedOverTask(QRunnable* task) : m_task(task) {}

    // What it reads of itself is still unknown to the sanitizer.
    __attribute__((no_sanitize("thread"))) void run() override
    {
        __tsan_acquire(m_task);
        carryOut(m_task);
    }

private:
    QRunnable* m_task;
};

} // namespace

void QThreadPool::start(QRunnable* task, int priority)
{
    using Start = void (*)(QThreadPool*, QRunnable*, int);
    static const auto originalStart =
        reinterpret_cast<Start>(dlsym(RTLD_NEXT, "_ZN11QThreadPool5startEP9QRunnablei"));
    auto* const handedOver = new HandedOverTask(task);
    __tsan_release(task);
    originalStart(this, handedOver, priority);
}

// Earlier releases hand calls over by functions that the sanitizer knows.
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)

namespace {

class HandedOverCall final : public QtPrivate::QSlotObjectBase {
public:
    explicit HandedOverCall(QtPrivate::QSlotObjectBase* call)
        : QSlotObjectBase(&deliver), m_call(call)
    {
    }

private:
    __attribute__((no_sanitize("thread"))) static void
    deliver(int which, QSlotObjectBase* self, QObject* receiver, void** arguments, bool*)
    {
        auto* const handedOver = static_cast<HandedOverCall*>(self);
        __tsan_acquire(handedOver->m_call);
        if (which == Call) {
            handedOver->m_call->call(receiver, arguments);
        } else if (which == Destroy) {
            handedOver->m_call->destroyIfLastRef();
            delete handedOver;
        }
    }

    QtPrivate::QSlotObjectBase* m_call;
};

} // namespace

bool QMetaObject::invokeMethodImpl(QObject* receiver, QtPrivate::QSlotObjectBase* call,
                                   Qt::ConnectionType type, qsizetype count,
                                   const void* const* values, const char* const* names,
                                   const QtPrivate::QMetaTypeInterface* const* types)
{
    using Invoke = bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, qsizetype,
                            const void* const*, const char* const*,
                            const QtPrivate::QMetaTypeInterface* const*);
    static const auto originalInvoke = reinterpret_cast<Invoke>(
        dlsym(RTLD_NEXT, "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBase"
                         "EN2Qt14ConnectionTypeExPKPKvPKPKcPKPKNS2_18QMetaTypeInterfaceE"));
    auto* const handedOver = new HandedOverCall(call);
    __tsan_release(call);
    return originalInvoke(receiver, handedOver, type, count, values, names, types);
}

#endif
#endif
