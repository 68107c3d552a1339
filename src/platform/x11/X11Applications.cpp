#include "platform/x11/X11Applications.h"

#include "platform/x11/WindowAge.h"
#include "platform/x11/X11WindowKind.h"

#include <QFileInfo>

#include <xcb/res.h>

namespace trovell {

namespace {

QString executableOfProcess(qint32 processIdentifier)
{
    const QString link = u"/proc/%1/exe"_qs.arg(processIdentifier);
    return processIdentifier > 0 ? QFileInfo(link).symLinkTarget() : QString();
}

/// Windows with the same key belong to the same application.
QString applicationKey(const IdentifiedWindow& window)
{
    const QString& identifier = window.application.bundleIdentifier;
    return identifier.isEmpty() ? u"process "_qs + QString::number(window.processIdentifier)
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

QHash<quint32, qint32> clientProcesses(const X11Connection& connection,
                                       xcb_res_query_client_ids_cookie_t cookie)
{
    QHash<quint32, qint32> processes;
    const auto reply = connection.reply<xcb_res_query_client_ids_reply>(cookie);
    if (!reply)
        return processes;
    auto each = xcb_res_query_client_ids_ids_iterator(reply.get());
    for (; each.rem > 0; xcb_res_client_id_value_next(&each)) {
        if (each.data->spec.mask == XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID &&
            xcb_res_client_id_value_value_length(each.data) > 0)
            processes.insert(connection.clientOf(each.data->spec.client),
                             static_cast<qint32>(*xcb_res_client_id_value_value(each.data)));
    }
    return processes;
}

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
          transientFor(connection.requestProperty(window, XCB_ATOM_WM_TRANSIENT_FOR))
    {
    }

    xcb_get_property_cookie_t wmClass;
    xcb_get_property_cookie_t processIdentifier;
    xcb_get_property_cookie_t gtkApplicationId;
    xcb_get_property_cookie_t types;
    xcb_get_property_cookie_t transientFor;
};

X11Applications::X11Applications(const X11Connection& connection, ApplicationIdentifier identify)
    : m_connection(connection), m_identify(std::move(identify))
{
}

QList<IdentifiedWindow> X11Applications::read()
{
    const QList<ListedWindow> list = readList();
    identifyUnknown(list);
    QList<IdentifiedWindow> windows;
    windows.reserve(list.size());
    for (const ListedWindow& listed : list) {
        const auto known = m_known.constFind(listed.window);
        if (known != m_known.cend())
            windows.append(*known);
    }
    forgetClosed(list);
    m_isFirstReading = false;
    return windows;
}

QList<X11Applications::ListedWindow> X11Applications::readList() const
{
    const bool hasClientIds = m_connection.server().hasClientIds;
    const auto listRequest =
        m_connection.requestProperty(m_connection.root(), m_connection.atoms().netClientList);
    xcb_res_query_client_ids_cookie_t idsRequest = {};
    if (hasClientIds) {
        const xcb_res_client_id_spec_t all = {0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        idsRequest = xcb_res_query_client_ids(m_connection.get(), 1, &all);
    }
    m_connection.finishBatch();
    m_connection.dropEvents();
    const QList<quint32> windows = propertyNumbers(m_connection.reply(listRequest));
    const QHash<quint32, qint32> processes =
        hasClientIds ? clientProcesses(m_connection, idsRequest) : QHash<quint32, qint32>();
    QList<ListedWindow> list;
    list.reserve(windows.size());
    for (const quint32 window : windows)
        list.append({window, processes.value(m_connection.clientOf(window))});
    return list;
}

bool X11Applications::isKnown(const ListedWindow& listed) const
{
    const auto known = m_known.constFind(listed.window);
    return listed.processIdentifier != 0 && known != m_known.cend() &&
           known->processIdentifier == listed.processIdentifier;
}

void X11Applications::identifyUnknown(const QList<ListedWindow>& list)
{
    QList<std::pair<ListedWindow, WindowRequest>> requests;
    for (const ListedWindow& listed : list) {
        if (!isKnown(listed))
            requests.append({listed, WindowRequest(m_connection, listed.window)});
    }
    if (requests.isEmpty())
        return;
    m_connection.finishBatch();
    for (const auto& [listed, request] : std::as_const(requests)) {
        m_known.remove(listed.window);
        if (const auto identified = receive(listed, request))
            m_known.insert(listed.window, *identified);
    }
}

std::optional<IdentifiedWindow> X11Applications::receive(const ListedWindow& listed,
                                                         const WindowRequest& request) const
{
    const auto classReply = m_connection.reply(request.wmClass);
    const auto claimed = propertyNumbers(m_connection.reply(request.processIdentifier));
    const auto gtkId =
        propertyText(m_connection.reply(request.gtkApplicationId), m_connection.atoms());
    const auto types = propertyNumbers(m_connection.reply(request.types));
    const auto transientFor = propertyNumbers(m_connection.reply(request.transientFor));
    if (!classReply)
        return std::nullopt;

    const auto classes = propertyBytes(classReply).split('\0');
    // The server's word before the program's: that one may come from another namespace.
    const bool isLocal = listed.processIdentifier != 0;
    const qint32 process =
        isLocal ? listed.processIdentifier : static_cast<qint32>(claimed.value(0));
    const WindowIdentity identity = {process, QString::fromUtf8(classes.value(1)),
                                     QString::fromUtf8(classes.value(0)), gtkId};
    const auto application = m_identify ? m_identify(identity) : std::nullopt;
    const auto kind = windowKind(types, !transientFor.isEmpty(), m_connection.atoms());
    const bool isNew = isLocal && (!m_isFirstReading || isYoungProcess(process));
    return IdentifiedWindow{isNew
                                ? handleOfNewWindow(listed.window, std::chrono::steady_clock::now())
                                : handleOfOldWindow(listed.window),
                            process, kind.has_value(), isOrdinaryKind(kind),
                            application ? *application : identityWithoutDesktopFile(identity)};
}

void X11Applications::forgetClosed(const QList<ListedWindow>& list)
{
    if (m_known.size() <= list.size())
        return;
    QHash<xcb_window_t, IdentifiedWindow> open;
    for (const ListedWindow& listed : list) {
        const auto known = m_known.constFind(listed.window);
        if (known != m_known.cend())
            open.insert(listed.window, *known);
    }
    m_known = open;
}

} // namespace trovell
