// SPDX-License-Identifier: MIT

#include "platform/x11/X11Displays.h"

#include "platform/x11/X11Reservations.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace trovell {

namespace {

using Surroundings = X11Displays::Surroundings;

/// What is asked every time.
class SurroundingsRequest {
public:
    SurroundingsRequest(const X11Connection& connection, xcb_atom_t ownAreas)
        : m_connection(connection), m_monitors(connection),
          m_screen(xcb_get_geometry(connection.get(), connection.root())),
          m_windows(requestOfRoot(connection.atoms().netClientList)),
          m_workAreas(requestOfRoot(connection.atoms().netWorkarea)),
          m_ownAreas(requestOfRoot(ownAreas)),
          m_desktop(requestOfRoot(connection.atoms().netCurrentDesktop)),
          m_topLevels(xcb_query_tree(connection.get(), connection.root()))
    {
    }

    Surroundings receive() const
    {
        Surroundings result;
        result.monitors = m_monitors.receive();
        if (const auto screen = m_connection.reply<xcb_get_geometry_reply>(m_screen))
            result.screen = QSize(screen->width, screen->height);
        result.windows = windows();
        result.workAreas = propertyNumbers(m_connection.reply(m_workAreas));
        result.ownAreas = propertyNumbers(m_connection.reply(m_ownAreas));
        return result;
    }

    /// The number of the current virtual desktop.
    quint32 receiveDesktop() const
    {
        return propertyNumbers(m_connection.reply(m_desktop)).value(0);
    }

private:
    xcb_get_property_cookie_t requestOfRoot(xcb_atom_t property) const
    {
        return m_connection.requestProperty(m_connection.root(), property);
    }

    /// Those that the window manager lists, and the outermost ones: panels may keep out of its
    /// sight. In no order, which would change with every window that is raised.
    QList<quint32> windows() const
    {
        QList<quint32> all = propertyNumbers(m_connection.reply(m_windows));
        if (const auto tree = m_connection.reply<xcb_query_tree_reply>(m_topLevels)) {
            const std::span topLevels(xcb_query_tree_children(tree.get()),
                                      xcb_query_tree_children_length(tree.get()));
            std::ranges::copy(topLevels, std::back_inserter(all));
        }
        std::ranges::sort(all);
        all.erase(std::ranges::unique(all).begin(), all.end());
        return all;
    }

    const X11Connection& m_connection;
    X11MonitorRequest m_monitors;
    xcb_get_geometry_cookie_t m_screen;
    xcb_get_property_cookie_t m_windows;
    xcb_get_property_cookie_t m_workAreas;
    xcb_get_property_cookie_t m_ownAreas;
    xcb_get_property_cookie_t m_desktop;
    xcb_query_tree_cookie_t m_topLevels;
};

std::optional<PixelRectangle> workAreaOf(const QList<quint32>& areas, quint32 desktop)
{
    const qsizetype first = 4 * static_cast<qsizetype>(desktop);
    if (areas.size() < first + 4)
        return std::nullopt;
    const auto number = [&](qsizetype index) { return static_cast<int>(areas.at(first + index)); };
    return PixelRectangle{number(0), number(1), number(2), number(3)};
}

QList<PixelRectangle> areasOf(const QList<quint32>& numbers)
{
    QList<PixelRectangle> areas;
    for (qsizetype index = 0; index + 4 <= numbers.size(); index += 4)
        areas.append(*workAreaOf(numbers, static_cast<quint32>(index / 4)));
    return areas;
}

/// What panels leave of each display.
QList<PixelRectangle> freeAreas(const Surroundings& surroundings, const DisplayDetails& details,
                                quint32 desktop, qsizetype main)
{
    const QList<PixelRectangle> ownAreas = areasOf(surroundings.ownAreas);
    QList<PixelRectangle> whole;
    QList<PixelRectangle> free;
    for (const X11Monitor& monitor : surroundings.monitors) {
        whole.append(monitor.area);
        free.append(withinOwnArea(withoutStruts(monitor.area, details.struts, surroundings.screen),
                                  monitor.area, ownAreas));
    }
    const auto workArea = workAreaOf(surroundings.workAreas, desktop);
    if (!workArea)
        return free;
    // It is one box for all displays together. With one display it knows panels that are in no
    // window list; with several it can only be told apart in part.
    if (free.size() == 1)
        return {intersectedOrWhole(free.first(), *workArea)};
    return ownAreas.isEmpty()
               ? withoutHiddenPanels(free, whole, main, *workArea, surroundings.screen)
               : free;
}

QList<Display> describe(const Surroundings& surroundings, const DisplayDetails& details,
                        quint32 desktop)
{
    const QList<X11Monitor>& monitors = surroundings.monitors;
    const auto main = mainMonitor(monitors);
    const QList<PixelRectangle> free = freeAreas(surroundings, details, desktop, main.value_or(-1));
    QList<Display> displays;
    for (qsizetype index = 0; index < monitors.size(); ++index) {
        const PixelRectangle& area = monitors.at(index).area;
        displays.append({details.monitorNames.at(index), frameFromPixels(area),
                         frameFromPixels(free.at(index)), 1.0, main == index});
    }
    return displays;
}

} // namespace

class X11Displays::Request {
public:
    Request(const X11Connection& connection, const X11Displays& last)
        : surroundings(connection, last.m_ownAreas),
          details(connection, last.m_surroundings.monitors, last.m_panels),
          hidden(connection, last.m_hidden)
    {
    }

    SurroundingsRequest surroundings;
    /// As a rule nothing changed since the last time, and the same details are wanted again.
    X11DetailRequest details;
    X11ShownRequest hidden;
};

std::shared_ptr<const X11Displays::Request> X11Displays::request() const
{
    return std::make_shared<const Request>(m_connection, *this);
}

QList<Display> X11Displays::receive(const Request& request)
{
    const quint32 desktop = request.surroundings.receiveDesktop();
    Surroundings surroundings = request.surroundings.receive();
    // Its name holds the number of the virtual desktop that it is about.
    if (desktop != m_desktop) {
        m_desktop = desktop;
        m_ownAreas = m_connection.atom("_GTK_WORKAREAS_D" + QByteArray::number(desktop));
        const auto areas = m_connection.requestProperty(m_connection.root(), m_ownAreas);
        m_connection.finishBatch();
        surroundings.ownAreas = propertyNumbers(m_connection.reply(areas));
    }
    DisplayDetails details = request.details.receive(surroundings.screen);
    if (request.hidden.receive() || surroundings != m_surroundings) {
        const X11DetailRequest all(m_connection, surroundings.monitors, surroundings.windows);
        m_connection.finishBatch();
        details = all.receive(surroundings.screen);
        m_surroundings = surroundings;
        m_panels = details.panels;
        m_hidden = details.hidden;
    }
    return describe(surroundings, details, desktop);
}

} // namespace trovell
