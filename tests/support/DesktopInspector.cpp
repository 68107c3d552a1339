#include "support/DesktopInspector.h"

#include <QTest>

#include <xcb/randr.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

namespace trovell::test {

namespace {

using namespace std::chrono_literals;

/// Null when the request failed.
template <class T> std::unique_ptr<T, decltype(&std::free)> owned(T* reply)
{
    return {reply, &std::free};
}

/// Calls `read` until it has given the same for a fifth of a second.
template <class Read> auto sameForAWhile(const Read& read)
{
    auto last = read();
    auto lastChange = std::chrono::steady_clock::now();
    waitUntil([&] {
        auto now = read();
        if (now != last)
            lastChange = std::chrono::steady_clock::now();
        last = std::move(now);
        return std::chrono::steady_clock::now() - lastChange > 200ms;
    });
    return last;
}

} // namespace

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds timeout)
{
    return QTest::qWaitFor(condition, static_cast<int>(timeout.count()));
}

DesktopInspector::DesktopInspector(const QByteArray& displayName)
    : m_connection(xcb_connect(displayName.constData(), nullptr))
{
}

DesktopInspector::~DesktopInspector()
{
    xcb_disconnect(m_connection);
}

quint32 DesktopInspector::pixel(quint32 id, const QPoint& point) const
{
    const auto request = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, id,
                                       qint16(point.x()), qint16(point.y()), 1, 1, ~0U);
    const auto image = owned(xcb_get_image_reply(m_connection, request, nullptr));
    if (!image)
        return 0;
    const uint8_t* bytes = xcb_get_image_data(image.get());
    return quint32(bytes[2]) << 16 | quint32(bytes[1]) << 8 | bytes[0];
}

quint32 DesktopInspector::root() const
{
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    return setup ? xcb_setup_roots_iterator(setup).data->root : 0;
}

quint32 DesktopInspector::atom(const char* name) const
{
    quint32& known = m_atoms[name];
    if (known == 0) {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
        const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
        known = reply ? reply->atom : 0;
    }
    return known;
}

QByteArray DesktopInspector::property(quint32 id, const char* name) const
{
    const auto cookie =
        xcb_get_property(m_connection, 0, id, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 16);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

QList<quint32> DesktopInspector::numbers(quint32 id, const char* name) const
{
    const QByteArray bytes = property(id, name);
    QList<quint32> result(bytes.size() / 4);
    if (!result.isEmpty())
        std::memcpy(result.data(), bytes.constData(), static_cast<size_t>(result.size()) * 4);
    return result;
}

QRect DesktopInspector::rootGeometry(quint32 id, quint32* outermost) const
{
    QPoint offset;
    QSize size;
    // The sum over all parents: another way than the one the product uses.
    for (quint32 window = id; window != 0 && window != root();) {
        const auto geometry = owned(
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
        const auto tree = owned(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        if (!geometry || !tree)
            return {};
        offset +=
            QPoint(geometry->x + geometry->border_width, geometry->y + geometry->border_width);
        if (window == id)
            size = QSize(geometry->width, geometry->height);
        if (outermost)
            *outermost = window;
        window = tree->parent;
    }
    return {offset, size};
}

std::optional<InspectedWindow> DesktopInspector::window(quint32 id) const
{
    InspectedWindow result;
    result.id = id;
    quint32 outermost = 0;
    result.client = rootGeometry(id, &outermost);
    if (result.client.isNull())
        return std::nullopt;
    result.title = QString::fromUtf8(property(id, "_NET_WM_NAME"));
    if (result.title.isEmpty())
        result.title = QString::fromLatin1(property(id, "WM_NAME"));
    result.wmClass = QString::fromUtf8(property(id, "WM_CLASS").split('\0').value(1));
    const QList<quint32> frame = numbers(id, "_NET_FRAME_EXTENTS");
    const QList<quint32> shadow = numbers(id, "_GTK_FRAME_EXTENTS");
    const auto outset = [&](int side) {
        return static_cast<int>(frame.value(side)) - static_cast<int>(shadow.value(side));
    };
    result.frame = result.client.adjusted(-outset(0), -outset(2), outset(1), outset(3));
    result.outermost = rootGeometry(outermost);
    const QList<quint32> states = numbers(id, "_NET_WM_STATE");
    result.isMinimized = states.contains(atom("_NET_WM_STATE_HIDDEN"));
    result.isMaximized = states.contains(atom("_NET_WM_STATE_MAXIMIZED_VERT"));
    result.isFullScreen = states.contains(atom("_NET_WM_STATE_FULLSCREEN"));
    result.isActive = numbers(root(), "_NET_ACTIVE_WINDOW").value(0) == id;
    return result;
}

QList<InspectedWindow> DesktopInspector::windows() const
{
    QList<InspectedWindow> result;
    for (const quint32 id : numbers(root(), "_NET_CLIENT_LIST")) {
        if (const auto found = window(id))
            result.append(*found);
    }
    return result;
}

std::optional<InspectedWindow> DesktopInspector::windowTitled(QStringView title) const
{
    for (const InspectedWindow& window : windows()) {
        if (window.title == title)
            return window;
    }
    return std::nullopt;
}

QMap<QString, QRect> DesktopInspector::framesByTitle() const
{
    QMap<QString, QRect> frames;
    for (const InspectedWindow& window : windows())
        frames.insert(window.title, window.frame);
    return frames;
}

InspectedWindow
DesktopInspector::waitForMatch(const std::function<bool(const InspectedWindow&)>& isWanted) const
{
    quint32 id = 0;
    const auto search = [&] {
        for (const InspectedWindow& window : windows()) {
            if (isWanted(window))
                id = window.id;
        }
        return id != 0;
    };
    return waitUntil(search, 30s) ? waitForRest(id) : InspectedWindow();
}

InspectedWindow DesktopInspector::waitForWindow(QStringView title) const
{
    return waitForMatch([&](const InspectedWindow& window) { return window.title == title; });
}

InspectedWindow DesktopInspector::waitForWindowOfClass(QStringView wmClass) const
{
    return waitForMatch([&](const InspectedWindow& window) { return window.wmClass == wmClass; });
}

bool DesktopInspector::waitForManagement() const
{
    const auto isProbeManaged = [this] {
        const quint32 probe = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, probe, root(), 0, 0, 10, 10, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(m_connection, probe);
        const auto isManaged = [&] { return numbers(root(), "_NET_CLIENT_LIST").contains(probe); };
        const bool answer = waitUntil(isManaged, 200ms);
        xcb_destroy_window(m_connection, probe);
        return answer && waitUntil([&] { return !isManaged(); });
    };
    return waitUntil(isProbeManaged);
}

bool DesktopInspector::waitForWindowCount(qsizetype count) const
{
    return waitUntil([&] { return numbers(root(), "_NET_CLIENT_LIST").size() >= count; }, 30s);
}

InspectedWindow DesktopInspector::waitForRest(quint32 id) const
{
    return sameForAWhile([this, id] { return window(id); }).value_or(InspectedWindow());
}

QList<InspectedWindow> DesktopInspector::waitForRest() const
{
    return sameForAWhile([this] { return windows(); });
}

void DesktopInspector::moveWindow(quint32 id, const QRect& client)
{
    const uint32_t values[] = {static_cast<uint32_t>(client.x()), static_cast<uint32_t>(client.y()),
                               static_cast<uint32_t>(client.width()),
                               static_cast<uint32_t>(client.height())};
    xcb_configure_window(m_connection, id,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(m_connection);
}

void DesktopInspector::sendToRoot(quint32 id, const char* type, const QList<quint32>& data)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = id;
    event.type = atom(type);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(m_connection, 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(m_connection);
}

void DesktopInspector::setMaximized(quint32 id, bool isOn)
{
    sendToRoot(
        id, "_NET_WM_STATE",
        {isOn, atom("_NET_WM_STATE_MAXIMIZED_VERT"), atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2});
}

void DesktopInspector::setFullScreen(quint32 id, bool isOn)
{
    sendToRoot(id, "_NET_WM_STATE", {isOn, atom("_NET_WM_STATE_FULLSCREEN"), 0, 2});
}

void DesktopInspector::setProperty(quint32 id, const char* name, const char* type,
                                   const QList<quint32>& values)
{
    if (values.isEmpty())
        xcb_delete_property(m_connection, id, atom(name));
    else
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom(name), atom(type), 32,
                            static_cast<uint32_t>(values.size()), values.constData());
    xcb_flush(m_connection);
}

void DesktopInspector::setEdid(const QByteArray& outputName, const QByteArray& edid)
{
    const auto resources = owned(xcb_randr_get_screen_resources_current_reply(
        m_connection, xcb_randr_get_screen_resources_current(m_connection, root()), nullptr));
    if (!resources)
        return;
    const auto* outputs = xcb_randr_get_screen_resources_current_outputs(resources.get());
    for (int index = 0; index < resources->num_outputs; ++index) {
        const auto info = owned(xcb_randr_get_output_info_reply(
            m_connection, xcb_randr_get_output_info(m_connection, outputs[index], 0), nullptr));
        if (info && outputName ==
                        QByteArrayView(xcb_randr_get_output_info_name(info.get()), info->name_len))
            xcb_randr_change_output_property(m_connection, outputs[index], atom("EDID"),
                                             XCB_ATOM_INTEGER, 8, XCB_PROP_MODE_REPLACE,
                                             static_cast<uint32_t>(edid.size()), edid.constData());
    }
    xcb_flush(m_connection);
}

quint32 DesktopInspector::selectionOwner(const char* selection) const
{
    const auto reply = owned(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, atom(selection)), nullptr));
    return reply ? reply->owner : 0;
}

} // namespace trovell::test
