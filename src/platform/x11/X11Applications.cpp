// SPDX-License-Identifier: MIT

#include "platform/x11/X11Applications.h"

#include "platform/x11/X11WindowId.h"
#include "platform/x11/X11WindowKind.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace trovell {

/// All that is asked about a window that was not seen before.
struct X11Applications::WindowRequest {
    WindowRequest(const X11Connection& connection, xcb_window_t window)
        : wmClass(connection.requestProperty(window, XCB_ATOM_WM_CLASS)),
          processIdentifier(connection.requestProperty(window, connection.atoms().netWmPid)),
          gtkApplicationId(connection.requestProperty(window, connection.atoms().gtkApplicationId)),
          types(connection.requestProperty(window, connection.atoms().netWmWindowType)),
          transientFor(connection.requestProperty(window, XCB_ATOM_WM_TRANSIENT_FOR)),
          title(connection.requestProperty(window, connection.atoms().netWmName))
    {
    }

    xcb_get_property_cookie_t wmClass;
    xcb_get_property_cookie_t processIdentifier;
    xcb_get_property_cookie_t gtkApplicationId;
    xcb_get_property_cookie_t types;
    xcb_get_property_cookie_t transientFor;
    xcb_get_property_cookie_t title;
};

X11Applications::X11Applications(const X11Connection& connection, ApplicationIdentifier identify)
    : m_connection(connection), m_identify(std::move(identify))
{
}

xcb_res_query_client_ids_cookie_t X11Applications::requestProcesses(xcb_window_t window) const
{
    const xcb_res_client_id_spec_t wanted = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    if (!m_connection.server().hasClientIds)
        return {};
    return xcb_res_query_client_ids(m_connection.get(), 1, &wanted);
}

X11Applications::ClientProcesses
X11Applications::receiveProcesses(xcb_res_query_client_ids_cookie_t cookie) const
{
    ClientProcesses processes;
    if (!m_connection.server().hasClientIds)
        return processes;
    const auto reply = m_connection.reply<xcb_res_query_client_ids_reply>(cookie);
    if (!reply)
        return processes;
    auto each = xcb_res_query_client_ids_ids_iterator(reply.get());
    for (; each.rem > 0; xcb_res_client_id_value_next(&each)) {
        const auto& [owner, byteCount] = *each.data;
        if (byteCount >= sizeof(quint32))
            processes.insert(m_connection.clientOf(owner.client),
                             static_cast<qint32>(*xcb_res_client_id_value_value(each.data)));
    }
    return processes;
}

X11Applications::Request X11Applications::request() const
{
    return {m_connection.requestProperty(m_connection.root(), m_connection.atoms().netClientList),
            requestProcesses(m_list.isEmpty() ? 0 : m_list.last())};
}

const QList<IdentifiedWindow>& X11Applications::receive(const Request& request)
{
    const QList<quint32> list = propertyNumbers(m_connection.reply(request.list));
    const ClientProcesses processes = receiveProcesses(request.lastProcess);
    // Numbers of windows are used again, also by other programs. But the list is in the order in
    // which the windows appeared: as long as the last one is the same, so are all before it.
    const bool isLastTheSame =
        list.isEmpty() || (m_lastProcess != 0 &&
                           processes.value(m_connection.clientOf(list.last())) == m_lastProcess);
    if (list != m_list || !isLastTheSame)
        update(list);
    m_isFirstReading = false;
    return m_windows;
}

void X11Applications::update(const QList<quint32>& list)
{
    const auto request = requestProcesses(0);
    m_connection.finishBatch();
    const ClientProcesses processes = receiveProcesses(request);
    const auto isLocal = [&](quint32 window) {
        return processes.contains(m_connection.clientOf(window));
    };
    m_windows = identify(list, processes);
    m_list = list;
    const QSet<quint32> listed(list.begin(), list.end());
    m_classes.removeIf([&listed](const auto& known) { return !listed.contains(known.key()); });
    const bool areAllLocal = std::all_of(list.begin(), list.end(), isLocal);
    m_lastProcess =
        areAllLocal && !list.isEmpty() ? processes.value(m_connection.clientOf(list.last())) : 0;
}

QList<IdentifiedWindow> X11Applications::identify(const QList<quint32>& list,
                                                  const ClientProcesses& processes)
{
    QHash<quint32, IdentifiedWindow> known;
    for (const IdentifiedWindow& window : m_windows)
        known.insert(windowOf(window.id), window);
    const auto localProcess = [&](quint32 window) {
        return processes.value(m_connection.clientOf(window));
    };
    const auto isKnown = [&](quint32 window) {
        return localProcess(window) != 0 &&
               known.value(window).processIdentifier == localProcess(window);
    };
    std::vector<WindowRequest> requests;
    for (const quint32 window : list) {
        if (!isKnown(window))
            requests.emplace_back(m_connection, window);
    }
    m_connection.finishBatch();
    auto request = requests.begin();
    QList<IdentifiedWindow> windows;
    for (const quint32 window : list) {
        if (isKnown(window))
            windows.append(known.value(window));
        else if (const auto found = receive(*request++, window, localProcess(window)))
            windows.append(*found);
    }
    return windows;
}

std::vector<xcb_get_property_cookie_t> X11Applications::requestClasses() const
{
    std::vector<xcb_get_property_cookie_t> request;
    for (const IdentifiedWindow& window : m_windows)
        request.push_back(m_connection.requestProperty(windowOf(window.id), XCB_ATOM_WM_CLASS));
    return request;
}

bool X11Applications::haveClassesChanged(const std::vector<xcb_get_property_cookie_t>& request)
{
    const QList<IdentifiedWindow> windows = std::exchange(m_windows, {});
    auto each = request.begin();
    for (const IdentifiedWindow& window : windows) {
        const auto reply = m_connection.reply(*each++);
        // One that is gone is noticed by its absence from the list.
        if (!reply || propertyBytes(reply) == m_classes.value(windowOf(window.id)))
            m_windows.append(window);
    }
    if (m_windows.size() == windows.size())
        return false;
    m_list.clear();
    return true;
}

std::optional<IdentifiedWindow> X11Applications::receive(const WindowRequest& request,
                                                         xcb_window_t window, qint32 localProcess)
{
    const auto classReply = m_connection.reply(request.wmClass);
    const auto claimed = propertyNumbers(m_connection.reply(request.processIdentifier));
    const auto gtkId =
        propertyText(m_connection.reply(request.gtkApplicationId), m_connection.atoms());
    const auto types = propertyNumbers(m_connection.reply(request.types));
    const auto transientFor = propertyNumbers(m_connection.reply(request.transientFor));
    const auto title = propertyBytes(m_connection.reply(request.title));
    if (!classReply)
        return std::nullopt;

    m_classes.insert(window, propertyBytes(classReply));
    const auto classes = m_classes.value(window).split('\0');
    // The server's word before the program's: that one may come from another namespace.
    const bool isLocal = localProcess != 0;
    const qint32 process = isLocal ? localProcess : static_cast<qint32>(claimed.value(0));
    const WindowIdentity identity = {.processIdentifier = process,
                                     .wmClass = QString::fromUtf8(classes.value(1)),
                                     .wmInstance = QString::fromUtf8(classes.value(0)),
                                     .gtkApplicationId = gtkId};
    const auto application = m_identify ? m_identify(identity) : std::nullopt;
    const auto kind = windowKind(types, !transientFor.isEmpty(), m_connection.atoms());
    const bool isNew = isLocal && (!m_isFirstReading || isYoungProcess(process));
    X11WindowFacts facts = {window, process, !title.isEmpty()};
    if (isNew)
        facts.firstSeen = std::chrono::steady_clock::now();
    return IdentifiedWindow{makeWindowId(facts), kind, process,
                            application ? *application : identityWithoutDesktopFile(identity)};
}

} // namespace trovell
