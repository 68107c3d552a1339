// SPDX-License-Identifier: MIT

#include "support/FakeWindowSystem.h"

#include "support/ReadyFuture.h"
#include "windows/StoredForms.h"

#include <QPromise>

#include <ranges>

namespace trovell {

using namespace Qt::StringLiterals;

FakeWindowSystem::FakeWindowSystem()
    : displays{{u"Main"_s, {0, 0, 1440, 900}, {0, 25, 1440, 875}, 1.0, true}}
{
}

FakeWindowSystem::~FakeWindowSystem()
{
    static QList<Unanswered> forever;
    forever.append(m_unanswered);
}

RunningApplication& FakeWindowSystem::addApplication(const QString& bundleIdentifier,
                                                     const QString& name)
{
    RunningApplication application;
    application.processIdentifier = qint32(1000 + m_applications.size());
    application.isRegular = true;
    application.bundleIdentifier = bundleIdentifier;
    application.localizedName = name.isEmpty() ? bundleIdentifier : name;
    application.bundleURL = u"file:///apps/%1.desktop"_s.arg(bundleIdentifier);
    m_applications.append(application);
    return m_applications.last();
}

WindowId FakeWindowSystem::addWindow(const QString& bundleIdentifier, const Window& window)
{
    if (!isRunning(bundleIdentifier))
        addApplication(bundleIdentifier);
    const WindowId id(0, ++m_lastId);
    m_windowsOfApplication[bundleIdentifier].append(id);
    m_windows.insert(id, window);
    return id;
}

bool FakeWindowSystem::isRunning(const QString& bundleIdentifier) const
{
    return std::ranges::any_of(m_applications, [&](const RunningApplication& application) {
        return application.bundleIdentifier == bundleIdentifier;
    });
}

DisplayFingerprint FakeWindowSystem::fingerprint(qsizetype display) const
{
    return StoredDisplays(displays).snapshots().value(display).fingerprint;
}

QList<DesktopWindow> FakeWindowSystem::windowsOf(const QString& bundleIdentifier) const
{
    QList<DesktopWindow> list;
    const QList<WindowId> ids = m_windowsOfApplication.value(bundleIdentifier);
    for (const WindowId& id : ids) {
        const auto window = m_windows.constFind(id);
        if (window == m_windows.cend())
            continue;
        list.append(
            {.id = id, .kind = window->kind, .title = window->title, .frame = window->frame});
        list.last().states = window->states;
        if (const auto desktop = window->virtualDesktop) {
            list.last().isOnAllDesktops = desktop->isAll;
            if (!desktop->isAll)
                list.last().virtualDesktop = desktop->index;
        }
        list.last().states.setFlag(WindowState::minimized, window->isMinimized);
    }
    return list;
}

DesktopSnapshot FakeWindowSystem::read(const DesktopQuestion& question)
{
    using Applications = DesktopQuestion::Applications;
    DesktopSnapshot snapshot;
    snapshot.control = trusted ? WindowControl::available : WindowControl::notGranted;
    snapshot.abilities.hasVirtualDesktops = !virtualDesktopNames.isEmpty();
    snapshot.virtualDesktopNames = virtualDesktopNames;
    snapshot.currentVirtualDesktop = desktopInView;
    if (question.displays)
        snapshot.displays = displays;
    const bool readsWindows = question.windows && trusted;
    if (readsWindows) {
        ++m_readCount;
        if (onRead)
            onRead();
    }
    for (RunningApplication application : std::as_const(m_applications)) {
        const QString identifier = *application.bundleIdentifier;
        const QList<DesktopWindow> windows = windowsOf(identifier);
        if (question.applications == Applications::none ||
            (question.applications == Applications::named &&
             !question.identifiers.contains(identifier)) ||
            (windows.isEmpty() && !question.withoutWindows))
            continue;
        if (readsWindows)
            application.windows = windows;
        snapshot.applications.append(application);
    }
    return snapshot;
}

QList<FrameOutcome> FakeWindowSystem::place(const QList<FrameRequest>& requests)
{
    QList<FrameOutcome> outcomes;
    for (const FrameRequest& request : requests) {
        const auto window = m_windows.find(request.window);
        const bool isTaken = window != m_windows.end() && !window->refusesFrames;
        if (isTaken) {
            const Window before = *window;
            window->frame = request.frame;
            window->states = request.states.value_or(window->states);
            if (request.virtualDesktop)
                window->virtualDesktop = request.virtualDesktop;
            if (*window != before)
                placed.append(request.window);
        }
        outcomes.append(isTaken ? FrameOutcome::taken : FrameOutcome::refused);
    }
    return outcomes;
}

QFuture<DesktopSnapshot> FakeWindowSystem::ask(const DesktopQuestion& question)
{
    if (isSilent && question.windows) {
        const auto answer = std::make_shared<QPromise<DesktopSnapshot>>();
        answer->start();
        m_unanswered.append({question, answer});
        return answer->future();
    }
    return readyFuture(read(question));
}

void FakeWindowSystem::answer()
{
    isSilent = false;
    const QList<Unanswered> unanswered = std::exchange(m_unanswered, {});
    for (const Unanswered& asked : unanswered) {
        asked.answer->addResult(read(asked.question));
        asked.answer->finish();
    }
}

QFuture<WindowControl> FakeWindowSystem::requestControl()
{
    return readyFuture(read({}).control);
}

QFuture<QList<FrameOutcome>> FakeWindowSystem::setFrames(const QList<FrameRequest>& requests)
{
    return readyFuture(place(requests));
}

QFuture<void> FakeWindowSystem::activate(const QStringList& identifiers)
{
    for (const QString& identifier : identifiers | std::views::reverse) {
        if (isRunning(identifier))
            activated.append(identifier);
    }
    return readyFuture();
}

QFuture<void> FakeWindowSystem::restack(const QList<WindowId>& backToFront)
{
    stacking = backToFront;
    return readyFuture();
}

QFuture<void> FakeWindowSystem::showVirtualDesktop(int index)
{
    shownDesktop = index;
    return readyFuture();
}

} // namespace trovell
