// SPDX-License-Identifier: MIT
//
// Tells the thread sanitizer what a thread pool guarantees: everything done before a task is
// started is visible to the task. Qt's library is built without the sanitizer, which therefore
// does not see the locks inside the pool and would report every task as a race.
#if defined(__SANITIZE_THREAD__)

#include <QRunnable>
#include <QThreadPool>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

void QThreadPool::start(QRunnable* task, int priority)
{
    using Start = void (*)(QThreadPool*, QRunnable*, int);
    static const auto originalStart =
        reinterpret_cast<Start>(dlsym(RTLD_NEXT, "_ZN11QThreadPool5startEP9QRunnablei"));
    __tsan_release(task);
    originalStart(this, QRunnable::create([task] {
                      __tsan_acquire(task);
                      const bool isOwned = task->autoDelete();
                      task->run();
                      if (isOwned)
                          delete task;
                  }),
                  priority);
}

#endif
