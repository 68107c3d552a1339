// SPDX-License-Identifier: MIT

#include "platform/x11/X11KeyGrabs.h"

namespace trovell {

namespace {

constexpr quint16 allModifiers = 0xff;

} // namespace

X11KeyGrabs::X11KeyGrabs(const QByteArray& displayName)
    : m_connection(X11Server{displayName, {}}), m_layout(readLayout())
{
    if (!m_connection.isAlive())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()),
                                                   QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { processEvents(); });
    processEventsSoon();
}

QList<quint32> X11KeyGrabs::replace(const QList<HotKey>& hotKeys,
                                    HotKeySystem::PressHandler handler)
{
    ungrabAll();
    m_grabs.clear();
    m_handler = std::move(handler);
    QList<quint32> granted;
    for (const HotKey& hotKey : hotKeys) {
        const auto combination = m_layout.combination(hotKey.keys);
        // The server would grant a client its own combination again.
        if (!m_connection.isAlive() ||
            (combination && (isGrabbed(*combination) || !grab(*combination))))
            continue;
        m_grabs.push_back({hotKey, combination});
        granted.append(hotKey.number);
    }
    return granted;
}

X11KeyboardLayout X11KeyGrabs::readLayout() const
{
    if (!m_connection.isAlive())
        return {};
    xcb_connection_t* connection = m_connection.get();
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const auto keyCount = static_cast<quint8>(setup->max_keycode - setup->min_keycode + 1);
    const auto keyCookie = xcb_get_keyboard_mapping(connection, setup->min_keycode, keyCount);
    const auto modifierCookie = xcb_get_modifier_mapping(connection);
    const auto keys = m_connection.reply<xcb_get_keyboard_mapping_reply>(keyCookie);
    const auto modifiers = m_connection.reply<xcb_get_modifier_mapping_reply>(modifierCookie);
    if (!keys || !modifiers)
        return {};
    const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(keys.get());
    const xcb_keycode_t* keycodes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    return {setup->min_keycode,
            keys->keysyms_per_keycode,
            {keysyms, keysyms + xcb_get_keyboard_mapping_keysyms_length(keys.get())},
            {keycodes, keycodes + xcb_get_modifier_mapping_keycodes_length(modifiers.get())}};
}

void X11KeyGrabs::followLayout()
{
    const X11KeyboardLayout layout = readLayout();
    processEventsSoon();
    // Using another keyboard counts as a change too. Where nothing moves, no press may be lost
    // between two grabs.
    if (layout == m_layout)
        return;
    ungrabAll();
    m_layout = layout;
    for (Grab& each : m_grabs) {
        const auto combination = m_layout.combination(each.hotKey.keys);
        if (combination && !isGrabbed(*combination) && grab(*combination))
            each.grabbed = combination;
    }
}

void X11KeyGrabs::ungrabAll()
{
    for (Grab& each : m_grabs) {
        if (each.grabbed)
            ungrab(*each.grabbed);
        each.grabbed.reset();
    }
}

bool X11KeyGrabs::isGrabbed(const X11KeyCombination& combination) const
{
    return std::ranges::any_of(m_grabs,
                               [&](const Grab& each) { return each.grabbed == combination; });
}

bool X11KeyGrabs::grab(const X11KeyCombination& combination)
{
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 modifiers : grabbedModifiers(combination)) {
        cookies.append(xcb_grab_key_checked(m_connection.get(), 1, m_connection.root(), modifiers,
                                            combination.keycode, XCB_GRAB_MODE_ASYNC,
                                            XCB_GRAB_MODE_ASYNC));
    }
    bool isGranted = true;
    for (const xcb_void_cookie_t cookie : std::as_const(cookies)) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), cookie));
        isGranted = isGranted && !error;
    }
    // A hot key that works only while Num Lock is off would be none.
    if (!isGranted)
        ungrab(combination);
    processEventsSoon();
    return isGranted && m_connection.isAlive();
}

void X11KeyGrabs::ungrab(const X11KeyCombination& combination)
{
    for (const quint16 modifiers : grabbedModifiers(combination))
        xcb_ungrab_key(m_connection.get(), combination.keycode, m_connection.root(), modifiers);
    xcb_flush(m_connection.get());
    processEventsSoon();
}

QList<quint16> X11KeyGrabs::grabbedModifiers(const X11KeyCombination& combination) const
{
    QList<quint16> states = combinationsOfBits(m_layout.lockModifiers() & ~combination.modifiers);
    for (quint16& state : states)
        state |= combination.modifiers;
    return states;
}

void X11KeyGrabs::processEvents()
{
    bool hasLayoutNews = false;
    while (const auto event =
               X11Reply<xcb_generic_event_t>(xcb_poll_for_event(m_connection.get()))) {
        // Events that other clients made up carry one more bit and are none of these.
        switch (event->response_type) {
        case XCB_KEY_PRESS:
            processKeyPress(*reinterpret_cast<const xcb_key_press_event_t*>(event.get()));
            break;
        case XCB_KEY_RELEASE: {
            const auto& release = *reinterpret_cast<const xcb_key_release_event_t*>(event.get());
            m_releasedKeycode = release.detail;
            m_releaseTime = release.time;
            break;
        }
        case XCB_MAPPING_NOTIFY:
            hasLayoutNews = true;
            break;
        default:
            break;
        }
    }
    if (hasLayoutNews)
        followLayout();
    // The socket of a server that is gone stays readable for ever.
    if (!m_connection.isAlive())
        m_notifier->setEnabled(false);
}

void X11KeyGrabs::processEventsSoon()
{
    // Events that came in while a reply was awaited are in xcb's queue, where they no longer make
    // the socket readable.
    if (m_notifier)
        QMetaObject::invokeMethod(
            m_notifier.get(), [this] { processEvents(); }, Qt::QueuedConnection);
}

void X11KeyGrabs::processKeyPress(const xcb_key_press_event_t& press)
{
    // A held key repeats: the server sends a release and a press with the same time.
    if (press.detail == m_releasedKeycode && press.time == m_releaseTime)
        return;
    const auto modifiers =
        static_cast<quint16>(press.state & allModifiers & ~m_layout.lockModifiers());
    const X11KeyCombination pressed{press.detail, modifiers};
    for (const Grab& each : m_grabs) {
        if (each.grabbed == pressed)
            return m_handler(each.hotKey.number);
    }
}

} // namespace trovell
