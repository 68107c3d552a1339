// A program whose windows do what real applications cannot be told to do: open late, put
// themselves back, vanish when they are moved, have any hints and any number. The options stand
// in `applyOption`; "--window" begins another window, which starts with the class, the geometry
// and the type of the one before. The program ends when its last window is closed or destroyed.

#include <xcb/xcb.h>
#include <xcb/xcb_icccm.h>

#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Time = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

struct WindowScript {
    std::string wmClass = "Scripted";
    std::string wmInstance = "scripted";
    std::string title = "Scripted";
    std::string latin1Title;
    std::string role;
    std::string gtkApplicationId;
    std::string type;
    std::vector<std::string> states;
    std::vector<int> geometry = {400, 300, 100, 100};
    std::vector<int> increments;
    std::vector<int> base;
    std::vector<int> minimum;
    std::vector<int> maximum;
    std::vector<int> gtkFrameExtents;
    std::vector<int> strut;
    int count = 1;
    int mapAfter = 0;
    int putBackAfter = 0;
    int pid = static_cast<int>(getpid());
    bool isTransient = false;
    bool isUndecorated = false;
    bool isOverrideRedirect = false;
    bool isIconic = false;
    bool vanishesWhenMoved = false;
};

std::vector<int> numbers(std::string_view text)
{
    std::vector<int> result;
    for (const char* at = text.data(); at < text.data() + text.size(); ++at) {
        char* end = nullptr;
        result.push_back(static_cast<int>(std::strtol(at, &end, 10)));
        at = end;
    }
    return result;
}

std::string latin1FromUtf8(std::string_view text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const bool isPair = lead >= 0xc0 && at + 1 < text.size();
        result += isPair ? static_cast<char>((lead & 0x03) << 6 | (text[++at] & 0x3f)) : text[at];
    }
    return result;
}

/// Applies an option with a value. Lists of numbers are separated by commas, times are
/// milliseconds.
bool applyOption(WindowScript& script, std::string_view option, const std::string& value)
{
    const std::map<std::string_view, std::function<void()>> options = {
        {"--class", [&] { script.wmClass = script.wmInstance = value; }},
        {"--instance", [&] { script.wmInstance = value; }},
        {"--title", [&] { script.title = value; }},
        // WM_NAME only, in Latin-1, as programs before EWMH set it.
        {"--latin1-title", [&] { script.latin1Title = latin1FromUtf8(value); }},
        {"--gtk-application-id", [&] { script.gtkApplicationId = value; }},
        // The part after _NET_WM_WINDOW_TYPE_, such as DIALOG.
        {"--type", [&] { script.type = value; }},
        // The part after _NET_WM_STATE_, set before the window is mapped. Can be repeated.
        {"--state", [&] { script.states.push_back(value); }},
        // width,height,x,y of the client area
        {"--geometry", [&] { script.geometry = numbers(value); }},
        // width,height of WM_NORMAL_HINTS
        {"--increments", [&] { script.increments = numbers(value); }},
        {"--base", [&] { script.base = numbers(value); }},
        {"--minimum", [&] { script.minimum = numbers(value); }},
        {"--maximum", [&] { script.maximum = numbers(value); }},
        // left,right,top,bottom of _GTK_FRAME_EXTENTS
        {"--gtk-frame-extents", [&] { script.gtkFrameExtents = numbers(value); }},
        // The twelve numbers of _NET_WM_STRUT_PARTIAL, or the first four for _NET_WM_STRUT.
        {"--strut", [&] { script.strut = numbers(value); }},
        // That many windows, named "title 1" and so on, in a cascade.
        {"--count", [&] { script.count = std::stoi(value); }},
        {"--map-after", [&] { script.mapAfter = std::stoi(value); }},
        // Takes its first geometry again so long after it was mapped.
        {"--put-back-after", [&] { script.putBackAfter = std::stoi(value); }},
        // Claims another process in _NET_WM_PID; 0 leaves the property away.
        {"--pid", [&] { script.pid = std::stoi(value); }},
    };
    const auto found = options.find(option);
    if (found == options.end())
        return false;
    found->second();
    return true;
}

bool applyFlag(WindowScript& script, std::string_view flag)
{
    const std::map<std::string_view, bool*> flags = {
        {"--transient", &script.isTransient}, // for the program's first window
        {"--undecorated", &script.isUndecorated},
        {"--override-redirect", &script.isOverrideRedirect},
        {"--iconic", &script.isIconic},
        {"--vanish-when-moved", &script.vanishesWhenMoved},
    };
    const auto found = flags.find(flag);
    if (found == flags.end())
        return false;
    *found->second = true;
    return true;
}

WindowScript nextWindow(const WindowScript& previous)
{
    WindowScript next;
    next.wmClass = previous.wmClass;
    next.wmInstance = previous.wmInstance;
    next.geometry = previous.geometry;
    next.type = previous.type;
    return next;
}

std::vector<WindowScript> parse(int argc, char** argv)
{
    std::vector<WindowScript> scripts(1);
    for (int index = 1; index < argc; ++index) {
        const std::string_view word = argv[index];
        if (word == "--window") {
            scripts.push_back(nextWindow(scripts.back()));
        } else if (!applyFlag(scripts.back(), word)) {
            if (index + 1 >= argc || !applyOption(scripts.back(), word, argv[index + 1])) {
                std::fprintf(stderr, "unknown option or missing value: %s\n", argv[index]);
                std::exit(2);
            }
            ++index;
        }
    }
    return scripts;
}

class Client {
public:
    Client()
        : m_connection(xcb_connect(nullptr, nullptr)),
          m_screen(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data)
    {
        if (xcb_connection_has_error(m_connection)) {
            std::fprintf(stderr, "no display\n");
            std::exit(1);
        }
    }

    void open(const WindowScript& script)
    {
        for (int index = 0; index < script.count; ++index)
            openOne(script, index);
    }

    void run()
    {
        while (!m_windows.empty() || !m_schedule.empty()) {
            xcb_flush(m_connection);
            pollfd descriptor = {xcb_get_file_descriptor(m_connection), POLLIN, 0};
            poll(&descriptor, 1, runDueActions());
            while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
                handle(event);
                std::free(event);
            }
            if (xcb_connection_has_error(m_connection))
                return;
        }
    }

private:
    struct Window {
        WindowScript script;
        std::vector<int> geometry;
        Time::time_point mappedAt;
        bool isMapped = false;
    };

    xcb_atom_t atom(const std::string& name)
    {
        xcb_atom_t& known = m_atoms[name];
        if (known == XCB_ATOM_NONE) {
            const auto cookie =
                xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(name.size()), name.c_str());
            auto* reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
            known = reply ? reply->atom : 0;
            std::free(reply);
        }
        return known;
    }

    void setText(xcb_window_t id, xcb_atom_t property, xcb_atom_t type, const std::string& text)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, property, type, 8,
                            static_cast<uint32_t>(text.size()), text.data());
    }

    void setNumbers(xcb_window_t id, const std::string& property, xcb_atom_t type,
                    const std::vector<int>& values)
    {
        if (!values.empty())
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom(property), type, 32,
                                static_cast<uint32_t>(values.size()), values.data());
    }

    void openOne(const WindowScript& script, int index)
    {
        const xcb_window_t id = xcb_generate_id(m_connection);
        Window window = {script, script.geometry, {}, false};
        window.geometry[2] += 12 * (index % 40);
        window.geometry[3] += 10 * (index % 40);
        const uint32_t values[] = {m_screen->white_pixel, script.isOverrideRedirect,
                                   XCB_EVENT_MASK_STRUCTURE_NOTIFY};
        xcb_create_window(
            m_connection, XCB_COPY_FROM_PARENT, id, m_screen->root,
            static_cast<int16_t>(window.geometry[2]), static_cast<int16_t>(window.geometry[3]),
            static_cast<uint16_t>(window.geometry[0]), static_cast<uint16_t>(window.geometry[1]), 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual,
            XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        setNames(id, script, script.count > 1 ? " " + std::to_string(index + 1) : "");
        setKind(id, script);
        setSizeHints(id, window);
        if (m_first == XCB_NONE)
            m_first = id;
        m_windows.emplace(id, window);
        after(script.mapAfter, [this, id] { map(id); });
    }

    void setNames(xcb_window_t id, const WindowScript& script, const std::string& suffix)
    {
        setText(id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                script.wmInstance + '\0' + script.wmClass + '\0');
        if (script.latin1Title.empty())
            setText(id, atom("_NET_WM_NAME"), atom("UTF8_STRING"), script.title + suffix);
        else
            setText(id, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, script.latin1Title);
        if (!script.gtkApplicationId.empty())
            setText(id, atom("_GTK_APPLICATION_ID"), atom("UTF8_STRING"), script.gtkApplicationId);
        if (script.pid != 0)
            setNumbers(id, "_NET_WM_PID", XCB_ATOM_CARDINAL, {script.pid});
    }

    void setKind(xcb_window_t id, const WindowScript& script)
    {
        if (!script.type.empty())
            setNumbers(id, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                       {static_cast<int>(atom("_NET_WM_WINDOW_TYPE_" + script.type))});
        if (script.isTransient)
            setNumbers(id, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {static_cast<int>(m_first)});
        if (script.isUndecorated)
            setNumbers(id, "_MOTIF_WM_HINTS", atom("_MOTIF_WM_HINTS"), {2, 0, 0, 0, 0});
        std::vector<int> states;
        for (const std::string& state : script.states)
            states.push_back(static_cast<int>(atom("_NET_WM_STATE_" + state)));
        setNumbers(id, "_NET_WM_STATE", XCB_ATOM_ATOM, states);
        setNumbers(id, "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, script.gtkFrameExtents);
        setNumbers(id, script.strut.size() == 4 ? "_NET_WM_STRUT" : "_NET_WM_STRUT_PARTIAL",
                   XCB_ATOM_CARDINAL, script.strut);
        setNumbers(id, "WM_PROTOCOLS", XCB_ATOM_ATOM, {static_cast<int>(atom("WM_DELETE_WINDOW"))});
        xcb_icccm_wm_hints_t hints = {};
        if (script.isIconic)
            xcb_icccm_wm_hints_set_iconic(&hints);
        xcb_icccm_set_wm_hints(m_connection, id, &hints);
    }

    void setSizeHints(xcb_window_t id, const Window& window)
    {
        const WindowScript& script = window.script;
        xcb_size_hints_t hints = {};
        xcb_icccm_size_hints_set_position(&hints, 1, window.geometry[2], window.geometry[3]);
        xcb_icccm_size_hints_set_size(&hints, 1, window.geometry[0], window.geometry[1]);
        if (!script.increments.empty())
            xcb_icccm_size_hints_set_resize_inc(&hints, script.increments[0], script.increments[1]);
        if (!script.base.empty())
            xcb_icccm_size_hints_set_base_size(&hints, script.base[0], script.base[1]);
        if (!script.minimum.empty())
            xcb_icccm_size_hints_set_min_size(&hints, script.minimum[0], script.minimum[1]);
        if (!script.maximum.empty())
            xcb_icccm_size_hints_set_max_size(&hints, script.maximum[0], script.maximum[1]);
        xcb_icccm_set_wm_normal_hints(m_connection, id, &hints);
    }

    void map(xcb_window_t id)
    {
        const auto window = m_windows.find(id);
        if (window == m_windows.end())
            return;
        xcb_map_window(m_connection, id);
        window->second.mappedAt = Time::now();
        window->second.isMapped = true;
        if (window->second.script.putBackAfter > 0)
            after(window->second.script.putBackAfter, [this, id] { putBack(id); });
    }

    void putBack(xcb_window_t id)
    {
        const auto window = m_windows.find(id);
        if (window == m_windows.end())
            return;
        const std::vector<int>& geometry = window->second.geometry;
        const uint32_t values[] = {
            static_cast<uint32_t>(geometry[2]), static_cast<uint32_t>(geometry[3]),
            static_cast<uint32_t>(geometry[0]), static_cast<uint32_t>(geometry[1])};
        xcb_configure_window(m_connection, id,
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT,
                             values);
    }

    void after(int milliseconds, std::function<void()> action)
    {
        m_schedule.emplace(Time::now() + Milliseconds(milliseconds), std::move(action));
    }

    /// Milliseconds until the next action, -1 when there is none.
    int runDueActions()
    {
        while (!m_schedule.empty() && m_schedule.begin()->first <= Time::now()) {
            const std::function<void()> action = std::move(m_schedule.begin()->second);
            m_schedule.erase(m_schedule.begin());
            action();
        }
        xcb_flush(m_connection);
        if (m_schedule.empty())
            return -1;
        const auto wait = std::chrono::ceil<Milliseconds>(m_schedule.begin()->first - Time::now());
        return std::max(0, static_cast<int>(wait.count()));
    }

    void handle(const xcb_generic_event_t* event)
    {
        const int type = event->response_type & 0x7f;
        if (type == XCB_DESTROY_NOTIFY)
            m_windows.erase(reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window);
        else if (type == XCB_CONFIGURE_NOTIFY)
            configured(reinterpret_cast<const xcb_configure_notify_event_t*>(event)->window);
        else if (type == XCB_CLIENT_MESSAGE)
            close(reinterpret_cast<const xcb_client_message_event_t*>(event)->window);
    }

    void configured(xcb_window_t id)
    {
        // What the window manager does while it takes the window over is not yet a move.
        constexpr Milliseconds settling(300);
        const auto window = m_windows.find(id);
        if (window != m_windows.end() && window->second.script.vanishesWhenMoved &&
            window->second.isMapped && Time::now() - window->second.mappedAt > settling)
            close(id);
    }

    void close(xcb_window_t id)
    {
        xcb_destroy_window(m_connection, id);
        m_windows.erase(id);
    }

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    xcb_window_t m_first = XCB_NONE;
    std::map<std::string, xcb_atom_t> m_atoms;
    std::map<xcb_window_t, Window> m_windows;
    std::multimap<Time::time_point, std::function<void()>> m_schedule;
};

} // namespace

int main(int argc, char** argv)
{
    Client client;
    for (const WindowScript& script : parse(argc, argv))
        client.open(script);
    client.run();
}
