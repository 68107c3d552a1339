// SPDX-License-Identifier: MIT
//
// A program whose windows do what real applications cannot be told to do: open late, put
// themselves back, vanish when they are moved, have any hints and any number. The options stand
// in `knownOptions`; "--window" begins another window, which starts with the class, the geometry
// and the type of the one before. The program ends when its last window is closed or destroyed.
//
// Times are milliseconds; lists of numbers are separated by commas: --geometry width,height,x,y of
// the client area, --increments and --base width,height, --gtk-frame-extents left,right,top,bottom,
// --strut its twelve numbers. --instance and --late-class are names besides --class, the latter
// from half a second after it appeared; --type is what follows _NET_WM_WINDOW_TYPE_; --pid claims
// another process; --count makes that many windows, "title 1" and so on, in a cascade.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QSocketNotifier>
#include <QTimer>

#include <xcb/xcb.h>
#include <xcb/xcb_icccm.h>

namespace {

using Script = QHash<QByteArray, QByteArray>;
using Numbers = QList<qint32>;

const QByteArray knownOptions =
    " --class --instance --late-class --title --gtk-application-id --pid --type --strut --geometry "
    "--increments"
    " --base --gtk-frame-extents --undecorated --count --map-after --put-back-after"
    " --vanish-when-moved --unmanaged ";

Numbers numbers(const QByteArray& text)
{
    Numbers result;
    for (const QByteArray& number : text.isEmpty() ? QByteArrayList() : text.split(','))
        result.append(number.toInt());
    return result;
}

QList<Script> parse(int argc, char** argv)
{
    QList<Script> scripts(1);
    for (int index = 1; index < argc; ++index) {
        const QByteArray word(argv[index]);
        if (word == "--window") {
            scripts.append(scripts.last());
            scripts.last().removeIf([](const auto& option) {
                return !QByteArrayList{"--class", "--instance", "--geometry", "--type"}.contains(
                    option.key());
            });
            continue;
        }
        if (!knownOptions.contains(' ' + word + ' '))
            qFatal("unknown option: %s", argv[index]);
        const bool hasValue = index + 1 < argc && qstrncmp(argv[index + 1], "--", 2) != 0;
        scripts.last().insert(word, hasValue ? argv[++index] : "");
    }
    return scripts;
}

class Client : public QObject {
public:
    explicit Client(const QList<Script>& scripts)
        : m_connection(xcb_connect(nullptr, nullptr)),
          m_screen(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data),
          m_notifier(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read)
    {
        for (const Script& script : scripts) {
            const int count = script.value("--count", "1").toInt();
            for (int index = 0; index < count; ++index)
                open(script, index, count > 1 ? ' ' + QByteArray::number(index + 1) : "");
        }
        connect(&m_notifier, &QSocketNotifier::activated, this, &Client::handleEvents);
        QTimer::singleShot(0, this, &Client::handleEvents);
    }

private:
    struct Window {
        Script script;
        Numbers geometry;
        QElapsedTimer sinceMapped = {};
    };

    xcb_atom_t atom(const QByteArray& name)
    {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, quint16(name.size()), name.constData());
        auto* reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
        const xcb_atom_t result = reply ? reply->atom : 0;
        std::free(reply);
        return result;
    }

    void setText(xcb_window_t id, const char* property, const char* type, const QByteArray& text)
    {
        if (!text.isEmpty())
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom(property), atom(type),
                                8, quint32(text.size()), text.constData());
    }

    void setNumbers(xcb_window_t id, const char* property, const char* type, const Numbers& values)
    {
        if (!values.isEmpty())
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom(property), atom(type),
                                32, quint32(values.size()), values.constData());
    }

    void open(const Script& script, int index, const QByteArray& suffix)
    {
        const xcb_window_t id = xcb_generate_id(m_connection);
        Window window = {script, numbers(script.value("--geometry", "400,300,100,100"))};
        window.geometry[2] += 12 * (index % 40);
        window.geometry[3] += 10 * (index % 40);
        const quint32 values[] = {m_screen->white_pixel, script.contains("--unmanaged"),
                                  XCB_EVENT_MASK_STRUCTURE_NOTIFY};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, id, m_screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        takeGeometry(id, window.geometry);
        setNames(id, script, suffix);
        setKind(id, script);
        setSizeHints(id, window);
        m_windows.insert(id, window);
        QTimer::singleShot(script.value("--map-after").toInt(), this, [this, id] { map(id); });
    }

    void setNames(xcb_window_t id, const Script& script, const QByteArray& suffix)
    {
        const QByteArray wmClass = script.value("--class", "Scripted");
        setClass(id, script.value("--instance", wmClass), wmClass);
        setText(id, "_NET_WM_NAME", "UTF8_STRING", script.value("--title", "Scripted") + suffix);
        setText(id, "_GTK_APPLICATION_ID", "UTF8_STRING", script.value("--gtk-application-id"));
        const QByteArray pid = QByteArray::number(QCoreApplication::applicationPid());
        setNumbers(id, "_NET_WM_PID", "CARDINAL", numbers(script.value("--pid", pid)));
    }

    void setClass(xcb_window_t id, const QByteArray& instance, const QByteArray& wmClass)
    {
        setText(id, "WM_CLASS", "STRING", instance + '\0' + wmClass + '\0');
    }

    void setKind(xcb_window_t id, const Script& script)
    {
        if (script.contains("--type"))
            setNumbers(id, "_NET_WM_WINDOW_TYPE", "ATOM",
                       {qint32(atom("_NET_WM_WINDOW_TYPE_" + script.value("--type")))});
        if (script.contains("--undecorated"))
            setNumbers(id, "_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
        setNumbers(id, "_GTK_FRAME_EXTENTS", "CARDINAL",
                   numbers(script.value("--gtk-frame-extents")));
        setNumbers(id, "_NET_WM_STRUT_PARTIAL", "CARDINAL", numbers(script.value("--strut")));
        setNumbers(id, "WM_PROTOCOLS", "ATOM", {qint32(atom("WM_DELETE_WINDOW"))});
    }

    void setSizeHints(xcb_window_t id, const Window& window)
    {
        const Numbers& geometry = window.geometry;
        const Numbers increments = numbers(window.script.value("--increments"));
        const Numbers base = numbers(window.script.value("--base"));
        xcb_size_hints_t hints = {};
        xcb_icccm_size_hints_set_position(&hints, 1, geometry[2], geometry[3]);
        xcb_icccm_size_hints_set_size(&hints, 1, geometry[0], geometry[1]);
        if (!increments.isEmpty())
            xcb_icccm_size_hints_set_resize_inc(&hints, increments[0], increments[1]);
        if (!base.isEmpty())
            xcb_icccm_size_hints_set_base_size(&hints, base[0], base[1]);
        xcb_icccm_set_wm_normal_hints(m_connection, id, &hints);
    }

    void map(xcb_window_t id)
    {
        xcb_map_window(m_connection, id);
        xcb_flush(m_connection);
        Window& window = m_windows[id];
        window.sinceMapped.start();
        if (const QByteArray late = window.script.value("--late-class"); !late.isEmpty())
            QTimer::singleShot(500, this, [this, id, late] {
                setClass(id, late, late);
                xcb_flush(m_connection);
            });
        if (window.script.contains("--put-back-after"))
            QTimer::singleShot(window.script.value("--put-back-after").toInt(), this,
                               [this, id] { takeGeometry(id, m_windows.value(id).geometry); });
    }

    void takeGeometry(xcb_window_t id, const Numbers& geometry)
    {
        const Numbers values = {geometry[2], geometry[3], geometry[0], geometry[1]};
        xcb_configure_window(m_connection, id,
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT,
                             values.constData());
        xcb_flush(m_connection);
    }

    void handleEvents()
    {
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
            const int type = event->response_type & 0x7f;
            if (type == XCB_DESTROY_NOTIFY)
                m_windows.remove(reinterpret_cast<xcb_destroy_notify_event_t*>(event)->window);
            else if (type == XCB_CONFIGURE_NOTIFY)
                configured(reinterpret_cast<xcb_configure_notify_event_t*>(event)->window);
            else if (type == XCB_CLIENT_MESSAGE)
                xcb_destroy_window(m_connection,
                                   reinterpret_cast<xcb_client_message_event_t*>(event)->window);
            std::free(event);
        }
        xcb_flush(m_connection);
        if (m_windows.isEmpty() || xcb_connection_has_error(m_connection))
            QCoreApplication::quit();
    }

    void configured(xcb_window_t id)
    {
        // What the window manager does while it takes the window over is not yet a move.
        const Window window = m_windows.value(id);
        if (window.script.contains("--vanish-when-moved") && window.sinceMapped.isValid() &&
            window.sinceMapped.hasExpired(300))
            xcb_destroy_window(m_connection, id);
    }

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    QSocketNotifier m_notifier;
    QHash<xcb_window_t, Window> m_windows;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Client client(parse(argc, argv));
    return QCoreApplication::exec();
}
