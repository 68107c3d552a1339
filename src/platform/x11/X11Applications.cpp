// SPDX-License-Identifier: MIT

#include "platform/x11/X11Applications.h"

#include "platform/x11/X11WindowHandle.h"
#include "platform/x11/X11WindowKind.h"

#include <QFileInfo>

#include <xcb/res.h>

#include <algorithm>
#include <vector>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

QString executableOfProcess(qint32 processIdentifier)
{
    const QString link = u"/proc/%1/exe"_s.arg(processIdentifier);
    return processIdentifier > 0 ? QFileInfo(link).symLinkTarget() : QString();
}

/// Windows with the same key belong to the same application.
QString applicationKey(const IdentifiedWindow& window)
{
    const QString& identifier = window.application.bundleIdentifier;
    return identifier.isEmpty() ? u"process "_s + QString::number(window.processIdentifier)
                                : identifier;
}

std::optional<QString> unlessEmpty(const QString& text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

RunningApplication applicationOf(const IdentifiedWindow& window)
{
    const ApplicationIdentity& identity = window.application;
    RunningApplication application;
    application.processIdentifier = window.processIdentifier;
    application.bundleIdentifier = unlessEmpty(identity.bundleIdentifier);
    application.localizedName = unlessEmpty(identity.name);
    application.bundleURL = unlessEmpty(identity.url.toString(QUrl::FullyEncoded));
    return application;
}

/// Asks for the processes of clients, as far as the server can tell.
class ClientProcessRequest {
public:
    /// For the client of one window, or for all clients: that reply comes in many small pieces.
    explicit ClientProcessRequest(const X11Connection& connection, xcb_window_t window = 0)
        : m_connection(connection)
    {
        const xcb_res_client_id_spec_t wanted = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        if (connection.server().hasClientIds)
            m_cookie = xcb_res_query_client_ids(connection.get(), 1, &wanted);
    }

    QHash<quint32, qint32> receive() const
    {
        QHash<quint32, qint32> processes;
        if (!m_connection.server().hasClientIds)
            return processes;
        const auto reply = m_connection.reply<xcb_res_query_client_ids_reply>(m_cookie);
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

private:
    const X11Connection& m_connection;
    xcb_res_query_client_ids_cookie_t m_cookie = {};
};

} // namespace

QList<RunningApplication> groupWindows(const QList<IdentifiedWindow>& windows)
{
    QList<RunningApplication> applications;
    QHash<QString, qsizetype> positions;
    for (const IdentifiedWindow& window : windows) {
        const QString key = applicationKey(window);
        const auto known = positions.constFind(key);
        const qsizetype position = known == positions.cend() ? applications.size() : *known;
        if (position == applications.size()) {
            positions.insert(key, position);
            applications.append(applicationOf(window));
        }
        RunningApplication& application = applications[position];
        application.isRegular = application.isRegular || window.isOrdinary;
        if (window.isWindow)
            application.windows.append(window.handle);
    }
    return applications;
}

ApplicationIdentity identityWithoutDesktopFile(const WindowIdentity& window)
{
    const QString executable = executableOfProcess(window.processIdentifier);
    const QString program = QFileInfo(executable).fileName();
    ApplicationIdentity identity;
    for (const QString& name : {window.wmClass, window.wmInstance, program}) {
        if (identity.name.isEmpty())
            identity.name = name;
    }
    identity.bundleIdentifier = identity.name;
    if (!executable.isEmpty())
        identity.url = QUrl::fromLocalFile(executable);
    return identity;
}

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

QList<IdentifiedWindow> X11Applications::read()
{
    const auto listRequest =
        m_connection.requestProperty(m_connection.root(), m_connection.atoms().netClientList);
    const ClientProcessRequest lastRequest(m_connection, m_list.isEmpty() ? 0 : m_list.last());
    m_connection.finishBatch();
    m_connection.dropEvents();
    const QList<quint32> list = propertyNumbers(m_connection.reply(listRequest));
    const ClientProcesses processes = lastRequest.receive();
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
    const ClientProcessRequest request(m_connection);
    m_connection.finishBatch();
    const ClientProcesses processes = request.receive();
    const auto isLocal = [&](quint32 window) {
        return processes.contains(m_connection.clientOf(window));
    };
    m_windows = identify(list, processes);
    m_list = list;
    const bool areAllLocal = std::all_of(list.begin(), list.end(), isLocal);
    m_lastProcess =
        areAllLocal && !list.isEmpty() ? processes.value(m_connection.clientOf(list.last())) : 0;
}

QList<IdentifiedWindow> X11Applications::identify(const QList<quint32>& list,
                                                  const ClientProcesses& processes) const
{
    QHash<quint32, IdentifiedWindow> known;
    for (const IdentifiedWindow& window : m_windows)
        known.insert(windowOfHandle(window.handle), window);
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

std::optional<IdentifiedWindow> X11Applications::receive(const WindowRequest& request,
                                                         xcb_window_t window,
                                                         qint32 localProcess) const
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

    const auto classes = propertyBytes(classReply).split('\0');
    // The server's word before the program's: that one may come from another namespace.
    const bool isLocal = localProcess != 0;
    const qint32 process = isLocal ? localProcess : static_cast<qint32>(claimed.value(0));
    const WindowIdentity identity = {process, QString::fromUtf8(classes.value(1)),
                                     QString::fromUtf8(classes.value(0)), gtkId};
    const auto application = m_identify ? m_identify(identity) : std::nullopt;
    const auto kind = windowKind(types, !transientFor.isEmpty(), m_connection.atoms());
    const bool isNew = isLocal && (!m_isFirstReading || isYoungProcess(process));
    X11WindowHandle handle = {window, kind.value_or(WindowKind::standard), !title.isEmpty()};
    if (isNew)
        handle.firstSeen = std::chrono::steady_clock::now();
    return IdentifiedWindow{packedHandle(handle), process, kind.has_value(), isOrdinaryKind(kind),
                            application ? *application : identityWithoutDesktopFile(identity)};
}

} // namespace trovell
