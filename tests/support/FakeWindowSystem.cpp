// SPDX-License-Identifier: MIT

#include "support/FakeWindowSystem.h"

#include <QMutexLocker>

namespace trovell {

using namespace Qt::StringLiterals;

FakeWindowSystem::FakeWindowSystem()
    : displays{display(u"Main"_s, {0, 0, 1440, 900}, {0, 0, 1440, 875}, true)}
{
}

RunningApplication& FakeWindowSystem::addApplication(const QString& bundleIdentifier,
                                                     const QString& name)
{
    const QMutexLocker lock(&m_mutex);
    RunningApplication application;
    application.processIdentifier = qint32(1000 + m_applications.size());
    application.isRegular = true;
    application.bundleIdentifier = bundleIdentifier;
    application.localizedName = name.isEmpty() ? bundleIdentifier : name;
    application.bundleURL = u"file:///apps/%1.desktop"_s.arg(bundleIdentifier);
    m_applications.append(application);
    return m_applications.last();
}

WindowHandle FakeWindowSystem::addWindow(const QString& bundleIdentifier, const Window& window)
{
    if (runningApplications(bundleIdentifier).isEmpty())
        addApplication(bundleIdentifier);
    const QMutexLocker lock(&m_mutex);
    for (RunningApplication& application : m_applications) {
        if (application.bundleIdentifier == bundleIdentifier)
            application.windows.append(++m_lastHandle);
    }
    m_windows.insert(m_lastHandle, window);
    return m_lastHandle;
}

DisplaySnapshot FakeWindowSystem::display(const QString& name, const QRectF& frame,
                                          const QRectF& visibleFrame, bool isMain)
{
    DisplaySnapshot snapshot =
        makeDisplaySnapshots({Screen{frame, visibleFrame, 1.0, name}}, std::nullopt).first();
    snapshot.fingerprint.isMain = isMain;
    return snapshot;
}

QList<RunningApplication> FakeWindowSystem::applicationsWithWindows()
{
    QList<RunningApplication> applications = runningApplications();
    applications.removeIf([](const auto& application) { return application.windows.isEmpty(); });
    return applications;
}

QList<RunningApplication> FakeWindowSystem::runningApplications(const QString& bundleIdentifier)
{
    QList<RunningApplication> applications = runningApplications();
    applications.removeIf([&](const RunningApplication& application) {
        return application.bundleIdentifier != bundleIdentifier;
    });
    return applications;
}

QList<QList<WindowAttributes>>
FakeWindowSystem::readWindows(const QList<RunningApplication>& applications) const
{
    if (onRead)
        onRead(applications);
    const QMutexLocker lock(&m_mutex);
    ++m_readCount;
    QList<QList<WindowAttributes>> lists;
    for (const RunningApplication& application : applications) {
        QList<WindowAttributes> list;
        for (const WindowHandle handle : application.windows) {
            const auto window = m_windows.constFind(handle);
            if (window != m_windows.cend())
                list.append({handle, window->isMinimized, window->role, window->subrole,
                             window->title, window->frame.topLeft(), window->frame.size()});
        }
        lists.append(list);
    }
    return lists;
}

QList<bool> FakeWindowSystem::setWindowFrames(const QList<WindowFrameRequest>& requests)
{
    const QMutexLocker lock(&m_mutex);
    QList<bool> accepted;
    for (const WindowFrameRequest& request : requests) {
        const auto window = m_windows.find(request.handle);
        accepted.append(window != m_windows.end() && !window->refusesFrames);
        if (accepted.last())
            window->frame = request.frame;
    }
    return accepted;
}

} // namespace trovell
