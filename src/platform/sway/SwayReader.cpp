// SPDX-License-Identifier: MIT

#include "platform/sway/SwayReader.h"

#include "platform/desktop/Activation.h"
#include "platform/sway/SwayCommands.h"
#include "platform/sway/SwayReading.h"
#include "platform/sway/SwayWorkspaces.h"

#include <QCoreApplication>

#include <algorithm>

namespace trovell {

namespace {

/// In the order in which they were opened: X11 numbers them so, and sway its containers.
auto age(const SwayWindow& window)
{
    const bool isX11 = window.id.low() != quint64(window.identity.processIdentifier);
    return isX11 ? window.id.low() : window.id.high();
}

void describe(DesktopWindow& window, const SwayWindow& seen, const QStringList& desktopNames)
{
    if (!seen.title.isEmpty())
        window.title = seen.title;
    window.frame = seen.frame;
    window.states = seen.states;
    window.isOnAllDesktops = seen.isSticky;
    window.stackingPosition = seen.stackingPosition;
    const qsizetype desktop = desktopNames.indexOf(seen.workspace);
    if (desktop >= 0 && !seen.isSticky)
        window.virtualDesktop = int(desktop);
}

std::optional<int> desktopInView(const SwayTree& tree, const QStringList& desktopNames)
{
    const auto focused =
        std::ranges::find_if(tree.workspaces, [](const auto& each) { return each.isFocused; });
    if (focused == tree.workspaces.end())
        return std::nullopt;
    return int(desktopNames.indexOf(focused->name));
}

} // namespace

SwayReader::SwayReader(QByteArray socketPath, ApplicationIdentifier identify,
                       BackgroundApplications background, X11WindowQuestion askX11)
    : m_socketPath(std::move(socketPath)), m_identify(std::move(identify)),
      m_background(std::move(background)), m_askX11(std::move(askX11))
{
}

SwayConnection& SwayReader::connection()
{
    if (!m_connection || !m_connection->isAlive())
        m_connection = std::make_unique<SwayConnection>(m_socketPath);
    return *m_connection;
}

DesktopSnapshot SwayReader::answer(const DesktopQuestion& question)
{
    DesktopSnapshot snapshot;
    const auto tree = readSwayTree(connection());
    if (!tree) {
        snapshot.control = WindowControl::notAnswering;
        snapshot.applications = applicationsAskedFor(question, {}, m_background);
        return snapshot;
    }
    const QStringList desktopNames =
        virtualDesktopNames(*tree, SwayConfiguration(readSwayConfiguration(connection())));
    snapshot.control = WindowControl::available;
    snapshot.abilities = {.states = swayStates, .hasVirtualDesktops = true};
    snapshot.virtualDesktopNames = desktopNames;
    snapshot.currentVirtualDesktop = desktopInView(*tree, desktopNames);
    if (question.displays)
        snapshot.displays = tree->displays;
    if (question.applications != DesktopQuestion::Applications::none)
        snapshot.applications =
            applicationsAskedFor(question, groupWindows(identify(*tree)), m_background);
    for (RunningApplication& application : snapshot.applications) {
        if (!question.windows)
            application.windows.clear();
        for (DesktopWindow& window : application.windows)
            describe(window, *tree->window(window.id), desktopNames);
    }
    return snapshot;
}

QList<IdentifiedWindow> SwayReader::identify(const SwayTree& tree)
{
    QList<SwayWindow> windows = tree.windows;
    std::ranges::stable_sort(windows, {}, &age);
    m_known.removeIf([&tree](const auto& known) { return !tree.window(known.key()); });
    m_untold.removeIf([&tree](const auto& known) { return !tree.window(known.key()); });
    QList<IdentifiedWindow> identified;
    for (SwayWindow& window : windows) {
        addUntoldFacts(window);
        identified.append(
            {window.id, window.kind, window.identity.processIdentifier, applicationOf(window)});
    }
    return identified;
}

void SwayReader::addUntoldFacts(SwayWindow& window)
{
    if (window.identity.processIdentifier != 0 || !m_askX11)
        return;
    if (!m_untold.contains(window.id))
        m_untold.insert(window.id, m_askX11(quint32(window.id.low())));
    const UntoldFacts facts = m_untold.value(window.id);
    window.identity.processIdentifier = facts.processIdentifier;
    window.kind = facts.kind;
}

ApplicationIdentity SwayReader::applicationOf(const SwayWindow& window)
{
    const auto known = m_known.constFind(window.id);
    if (known != m_known.cend() && known->first == window.identity)
        return known->second;
    const auto installed = m_identify ? m_identify(window.identity) : std::nullopt;
    const ApplicationIdentity application =
        installed ? *installed : identityWithoutDesktopFile(window.identity);
    m_known.insert(window.id, {window.identity, application});
    return application;
}

void SwayReader::activate(const QStringList& identifiers)
{
    const DesktopSnapshot snapshot =
        answer({.applications = DesktopQuestion::Applications::named,
                .identifiers = {identifiers.begin(), identifiers.end()},
                .windows = true});
    QByteArrayList commands;
    const QList<WindowId> windows =
        windowsToActivate(identifiers, snapshot.applications, snapshot.currentVirtualDesktop);
    for (const WindowId& window : windows)
        commands.append(criteriaOf(window) + "focus");
    connection().run(commands);
}

void SwayReader::activateOwnWindow(quintptr nativeWindow)
{
    const auto tree = readSwayTree(connection());
    const qint64 ownProcess = QCoreApplication::applicationPid();
    const SwayWindow* best = nullptr;
    for (const SwayWindow& window : tree ? tree->windows : QList<SwayWindow>()) {
        const bool isAsked = window.id.low() == nativeWindow;
        const bool isOwn = window.identity.processIdentifier == ownProcess;
        if (isAsked || (isOwn && (!best || age(window) > age(*best))))
            best = tree->window(window.id);
        if (isAsked)
            break;
    }
    if (best)
        connection().run({criteriaOf(best->id) + "focus"});
}

void SwayReader::restack(const QList<WindowId>& backToFront)
{
    const auto tree = readSwayTree(connection());
    if (!tree)
        return;
    // Only the focus raises; windows out of view, which it would show, keep their order.
    QByteArrayList commands;
    QList<int> positions;
    for (const WindowId& id : backToFront) {
        const SwayWindow* window = tree->window(id);
        const SwayWorkspace* workspace = window ? tree->workspace(window->workspace) : nullptr;
        if (!workspace || !workspace->isVisible || window->states != WindowStates())
            continue;
        commands.append(criteriaOf(id) + "focus");
        positions.append(window->stackingPosition);
    }
    if (std::ranges::is_sorted(positions))
        return;
    for (const SwayWindow& window : tree->windows) {
        if (window.isFocused)
            commands.append(criteriaOf(window.id) + "focus");
    }
    connection().run(commands);
}

void SwayReader::showVirtualDesktop(int index)
{
    const QStringList names = answer({}).virtualDesktopNames;
    if (index < 0 || names.isEmpty())
        return;
    const QString name = names.value(index, QString::number(index + 1));
    connection().run({"workspace --no-auto-back-and-forth " + workspaceArgument(name)});
}

} // namespace trovell
