// SPDX-License-Identifier: MIT

#include "RestoreWorkload.h"

#include "platform/desktop/FrameNegotiation.h"
#include "platform/x11/X11WindowGeometry.h"

#include <algorithm>
#include <cstdlib>

namespace trovell::bench {

using namespace Qt::StringLiterals;

namespace {

int difference(const QRect& a, const QRect& b)
{
    return std::max({std::abs(a.x() - b.x()), std::abs(a.y() - b.y()),
                     std::abs(a.width() - b.width()), std::abs(a.height() - b.height())});
}

QByteArrayList numbers(std::initializer_list<int> values)
{
    QByteArrayList texts;
    for (const int value : values)
        texts.append(QByteArray::number(value));
    return texts;
}

} // namespace

RestoreWorkload::RestoreWorkload(CrowdedDesktop& crowd, int applications, int windowsEach,
                                 Spread spread)
    : m_crowd(crowd), m_spread(spread),
      m_displays(crowd.session().windowSystem().ask({.displays = true}).result().displays)
{
    for (int application = 0; application < applications; ++application) {
        for (int index = 0; index < windowsEach; ++index) {
            const QString title = CrowdedDesktop::windowTitle(application, index);
            const auto window = crowd.desktop().inspector().windowTitled(title);
            if (window)
                m_windows.append({window->id, application, index, title,
                                  window->frame.size() - window->client.size()});
        }
    }
}

QList<quint32> RestoreWorkload::windows() const
{
    QList<quint32> ids;
    for (const Window& window : m_windows)
        ids.append(window.id);
    return ids;
}

QList<QList<WindowPlacementSnapshot>> RestoreWorkload::placements(int layout) const
{
    QList<QList<WindowPlacementSnapshot>> groups;
    for (qsizetype index = 0; index < m_windows.size(); ++index) {
        if (m_windows.at(index).application == groups.size())
            groups.append(QList<WindowPlacementSnapshot>());
        groups.last().append(placement(layout, index));
    }
    return groups;
}

QByteArrayList RestoreWorkload::xdotoolCommand(int layout) const
{
    QByteArrayList command = {"xdotool"};
    for (qsizetype index = 0; index < m_windows.size(); ++index) {
        const QByteArray id = QByteArray::number(m_windows.at(index).id);
        const QPoint position = frame(layout, index).topLeft();
        const QSize size = clientSize(layout, index);
        command += QByteArrayList{"windowmove", id} + numbers({position.x(), position.y()});
        command += QByteArrayList{"windowsize", id} + numbers({size.width(), size.height()});
    }
    return command;
}

QList<QByteArrayList> RestoreWorkload::wmctrlCommands(int layout) const
{
    QList<QByteArrayList> commands;
    for (qsizetype index = 0; index < m_windows.size(); ++index) {
        const QByteArray id = "0x" + QByteArray::number(m_windows.at(index).id, 16);
        const QPoint position = frame(layout, index).topLeft();
        const QSize size = clientSize(layout, index);
        const QByteArrayList geometry =
            numbers({0, position.x(), position.y(), size.width(), size.height()});
        commands.append({"wmctrl", "-i", "-r", id, "-e", geometry.join(',')});
        if (m_spread == Spread::fourDesktops)
            commands.append({"wmctrl", "-i", "-r", id, "-t",
                             QByteArray::number(virtualDesktop(layout, index))});
    }
    return commands;
}

void RestoreWorkload::sendBlindly(const X11Connection& connection, int layout) const
{
    for (qsizetype index = 0; index < m_windows.size(); ++index) {
        const QRect target = frame(layout, index);
        const QSize decorations = m_windows.at(index).decorations;
        const FrameExtents extents = {0, decorations.width(), 0, decorations.height()};
        const DecoratedWindow window = {{}, extents, {}};
        connection.sendToRoot(
            m_windows.at(index).id, connection.atoms().netMoveresizeWindow,
            moveResizeData({target.x(), target.y(), target.width(), target.height()}, window, {}));
    }
    xcb_flush(connection.get());
}

Exactness RestoreWorkload::exactness(int layout) const
{
    Exactness result;
    for (qsizetype index = 0; index < m_windows.size(); ++index) {
        const int error = this->error(layout, index);
        result.exact += error == 0 ? 1 : 0;
        result.worst = std::max(result.worst, error);
    }
    return result;
}

int RestoreWorkload::error(int layout, qsizetype index) const
{
    constexpr int elsewhere = 10'000;
    const lab::DesktopInspector& inspector = m_crowd.desktop().inspector();
    const quint32 id = m_windows.at(index).id;
    const auto window = inspector.window(id);
    if (!window)
        return elsewhere;
    if (m_spread == Spread::fourDesktops &&
        inspector.numbers(id, "_NET_WM_DESKTOP").value(0) != quint32(virtualDesktop(layout, index)))
        return elsewhere;
    if (window->isMaximized || isMaximized(layout, index))
        return window->isMaximized == isMaximized(layout, index) ? 0 : elsewhere;
    return difference(window->frame, frame(layout, index));
}

int RestoreWorkload::virtualDesktop(int layout, qsizetype index)
{
    return int(index + layout) % 4;
}

bool RestoreWorkload::isMaximized(int layout, qsizetype index) const
{
    return m_spread == Spread::fourDesktops && index % 5 == 2 * layout;
}

QRect RestoreWorkload::frame(int layout, qsizetype index)
{
    const int number = static_cast<int>(index);
    if (layout == 0)
        return {40 + 50 * (number % 20), 40 + 45 * (number / 20), 400 + 13 * (number % 7),
                300 + 17 * (number % 5)};
    return {1620 + 40 * (number % 19), 20 + 37 * (number / 19), 330 + 11 * (number % 6),
            260 + 19 * (number % 9)};
}

QSize RestoreWorkload::clientSize(int layout, qsizetype index) const
{
    return frame(layout, index).size() - m_windows.at(index).decorations;
}

WindowPlacementSnapshot RestoreWorkload::placement(int layout, qsizetype index) const
{
    const Window& window = m_windows.at(index);
    const QRectF screenFrame = m_displays.storedFrame(QRectF(frame(layout, index)));
    const DisplaySnapshot display = *displayContaining(screenFrame, m_displays.snapshots());
    std::optional<WindowStates> states;
    std::optional<SavedDesktop> desktop;
    if (m_spread == Spread::fourDesktops) {
        states = isMaximized(layout, index) ? fillingStates & ~WindowStates(WindowState::fullScreen)
                                            : WindowStates();
        desktop = SavedDesktop{virtualDesktop(layout, index)};
    }
    return {.id = QUuid::createUuid(),
            .bundleIdentifier = CrowdedDesktop::bundleIdentifier(window.application),
            .applicationName = {},
            .windowTitleHint = window.title,
            .windowRole = u"AXWindow"_s,
            .windowSubrole = u"AXStandardWindow"_s,
            .windowIndexHint = window.indexInApplication,
            .normalizedFrame = normalizeFrame(screenFrame, display.visibleFrame),
            .absoluteFrame = screenFrame,
            .displayFingerprint = display.fingerprint,
            .states = states,
            .virtualDesktop = desktop};
}

} // namespace trovell::bench
