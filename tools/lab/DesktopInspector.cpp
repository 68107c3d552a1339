// SPDX-License-Identifier: MIT

#include "lab/DesktopInspector.h"

#include <QTest>

#include <xcb/randr.h>

namespace trovell::lab {

namespace {

using namespace std::chrono_literals;

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

quint32 DesktopInspector::pixel(quint32 id, const QPoint& point) const
{
    const auto image = m_connection.reply<xcb_get_image_reply>(
        xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, id, qint16(point.x()),
                      qint16(point.y()), 1, 1, ~0U));
    if (!image)
        return 0;
    const uint8_t* bytes = xcb_get_image_data(image.get());
    return quint32(bytes[2]) << 16 | quint32(bytes[1]) << 8 | bytes[0];
}

quint32 DesktopInspector::atom(const QByteArray& name) const
{
    const auto reply = m_connection.reply<xcb_intern_atom_reply>(
        xcb_intern_atom(m_connection.get(), 0, quint16(name.size()), name.constData()));
    return reply ? reply->atom : 0;
}

QList<quint32> DesktopInspector::numbers(quint32 id, quint32 property) const
{
    return propertyNumbers(m_connection.reply(m_connection.requestProperty(id, property)));
}

QByteArray DesktopInspector::text(quint32 id, quint32 property) const
{
    return propertyBytes(m_connection.reply(m_connection.requestProperty(id, property)));
}

QRect DesktopInspector::rootGeometry(quint32 id, quint32* outermost) const
{
    QPoint offset;
    QSize size;
    // The sum over all parents: another way than the one the product uses.
    for (quint32 window = id; window != 0 && window != root();) {
        const auto geometry = m_connection.reply<xcb_get_geometry_reply>(
            xcb_get_geometry(m_connection.get(), window));
        const auto tree =
            m_connection.reply<xcb_query_tree_reply>(xcb_query_tree(m_connection.get(), window));
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
    const X11Atoms& atoms = m_connection.atoms();
    InspectedWindow result;
    result.id = id;
    quint32 outermost = 0;
    result.client = rootGeometry(id, &outermost);
    if (result.client.isNull())
        return std::nullopt;
    result.title = QString::fromUtf8(text(id, atoms.netWmName));
    if (result.title.isEmpty())
        result.title = QString::fromLatin1(text(id, XCB_ATOM_WM_NAME));
    result.wmClass = QString::fromUtf8(text(id, XCB_ATOM_WM_CLASS).split('\0').value(1));
    const QList<quint32> frame = numbers(id, atoms.netFrameExtents);
    const QList<quint32> shadow = numbers(id, atoms.gtkFrameExtents);
    const auto outset = [&](int side) {
        return static_cast<int>(frame.value(side)) - static_cast<int>(shadow.value(side));
    };
    result.frame = result.client.adjusted(-outset(0), -outset(2), outset(1), outset(3));
    result.outermost = rootGeometry(outermost);
    const QList<quint32> states = numbers(id, atoms.netWmState);
    result.isMinimized = states.contains(atoms.netWmStateHidden);
    result.isMaximized = states.contains(atoms.netWmStateMaximizedVert);
    result.isFullScreen = states.contains(atoms.netWmStateFullscreen);
    result.isActive = numbers(root(), atoms.netActiveWindow).value(0) == id;
    return result;
}

QList<InspectedWindow> DesktopInspector::windows() const
{
    QList<InspectedWindow> result;
    for (const quint32 id : numbers(root(), m_connection.atoms().netClientList)) {
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
    return waitUntil(search) ? waitForRest(id) : InspectedWindow();
}

InspectedWindow DesktopInspector::waitForWindow(QStringView title) const
{
    return waitForMatch([&](const InspectedWindow& window) { return window.title == title; });
}

InspectedWindow DesktopInspector::waitForWindowOfClass(QStringView wmClass) const
{
    return waitForMatch([&](const InspectedWindow& window) { return window.wmClass == wmClass; });
}

bool DesktopInspector::waitForManagement(const std::function<bool()>& runs) const
{
    const auto isProbeManaged = [this] {
        const quint32 probe = xcb_generate_id(m_connection.get());
        xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, probe, root(), 0, 0, 10, 10, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(m_connection.get(), probe);
        const auto isManaged = [&] {
            return numbers(root(), m_connection.atoms().netClientList).contains(probe);
        };
        const bool answer = waitUntil(isManaged, 200ms);
        xcb_destroy_window(m_connection.get(), probe);
        return answer && waitUntil([&] { return !isManaged(); });
    };
    bool isManaging = false;
    waitUntil([&] { return (isManaging = isProbeManaged()) || !runs(); });
    return isManaging;
}

bool DesktopInspector::waitForWindowCount(qsizetype count) const
{
    return waitUntil(
        [&] { return numbers(root(), m_connection.atoms().netClientList).size() >= count; });
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
    const qint32 values[] = {client.x(), client.y(), client.width(), client.height()};
    xcb_configure_window(m_connection.get(), id,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(m_connection.get());
}

void DesktopInspector::sendToRoot(quint32 id, const char* type, const std::array<quint32, 5>& data)
{
    m_connection.sendToRoot(id, atom(type), data);
    xcb_flush(m_connection.get());
}

void DesktopInspector::maximize(quint32 id)
{
    const X11Atoms& atoms = m_connection.atoms();
    sendToRoot(id, "_NET_WM_STATE",
               {1, atoms.netWmStateMaximizedVert, atoms.netWmStateMaximizedHorz, 2});
}

void DesktopInspector::makeFullScreen(quint32 id)
{
    sendToRoot(id, "_NET_WM_STATE", {1, m_connection.atoms().netWmStateFullscreen, 0, 2});
}

void DesktopInspector::setEdid(int outputIndex, const QByteArray& edid)
{
    const auto resources = m_connection.reply<xcb_randr_get_screen_resources_current_reply>(
        xcb_randr_get_screen_resources_current(m_connection.get(), root()));
    const auto output =
        xcb_randr_get_screen_resources_current_outputs(resources.get())[outputIndex];
    xcb_randr_change_output_property(m_connection.get(), output, m_connection.atoms().edid,
                                     XCB_ATOM_INTEGER, 8, XCB_PROP_MODE_REPLACE,
                                     quint32(edid.size()), edid.constData());
    xcb_flush(m_connection.get());
}

quint32 DesktopInspector::selectionOwner(const char* selection) const
{
    const auto reply = m_connection.reply<xcb_get_selection_owner_reply>(
        xcb_get_selection_owner(m_connection.get(), atom(selection)));
    return reply ? reply->owner : 0;
}

} // namespace trovell::lab
