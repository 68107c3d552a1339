// SPDX-License-Identifier: MIT
//
// Hot keys from the key press to the trigger, on a real X server and window manager. The keys are
// pressed by another program, by their place on the keyboard: what a digit's key is depends on the
// layout.

#include "platform/x11/X11HotKeys.h"
#include "services/GlobalHotKeyManager.h"

#include "lab/VirtualDesktop.h"
#include "support/Patience.h"
#include "support/ShortcutWorkspaces.h"

#include <QTest>

#include <xcb/xcb.h>

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;
using namespace std::chrono_literals;

namespace {

using Keycodes = QList<quint8>;

constexpr quint16 lock = XCB_MOD_MASK_LOCK;
constexpr quint16 numLock = XCB_MOD_MASK_2;
constexpr quint16 controlAlt = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
constexpr quint16 anyModifier = XCB_MOD_MASK_ANY;
constexpr quint8 leftControlKey = 37;
constexpr quint8 leftAltKey = 64;
constexpr quint8 shiftKey = 50;
/// Those that "us", "fr" and most other layouts have for the digits 1 to 5, and for 6.
const Keycodes digitKeys{10, 11, 12, 13, 14};
constexpr quint8 sixKey = 15;

/// Another program that grabs keys.
class OtherProgram {
public:
    explicit OtherProgram(const VirtualDesktop& desktop)
        : m_connection(X11Server{desktop.displayName(), {}})
    {
    }

    /// False when somebody else owns it.
    bool grab(quint8 keycode, quint16 modifiers)
    {
        const auto cookie =
            xcb_grab_key_checked(m_connection.get(), 0, m_connection.root(), modifiers, keycode,
                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return !X11Reply<xcb_generic_error_t>(xcb_request_check(m_connection.get(), cookie));
    }

    void ungrab(quint8 keycode, quint16 modifiers)
    {
        const auto cookie =
            xcb_ungrab_key_checked(m_connection.get(), keycode, m_connection.root(), modifiers);
        free(xcb_request_check(m_connection.get(), cookie));
    }

    /// Whether nobody owns the key with any modifiers.
    bool isFree(quint8 keycode)
    {
        const bool isGranted = grab(keycode, anyModifier);
        if (isGranted)
            ungrab(keycode, anyModifier);
        return isGranted;
    }

    /// How many presses of its keys arrived since the last call.
    int takePressCount()
    {
        int count = 0;
        while (const auto event =
                   X11Reply<xcb_generic_event_t>(xcb_poll_for_event(m_connection.get())))
            count += event->response_type == XCB_KEY_PRESS ? 1 : 0;
        return count;
    }

    quint16 lockState() const
    {
        const auto state = m_connection.reply<xcb_query_pointer_reply>(
            xcb_query_pointer(m_connection.get(), m_connection.root()));
        return state ? state->mask & (lock | numLock) : 0;
    }

private:
    X11Connection m_connection;
};

/// One run of xdotool; the modifier keys are held around `actions`.
void hold(const VirtualDesktop& desktop, const Keycodes& modifierKeys,
          const QByteArrayList& actions)
{
    QByteArrayList arguments;
    for (const quint8 key : modifierKeys)
        arguments += {"keydown", QByteArray::number(key)};
    arguments += actions;
    for (const quint8 key : modifierKeys)
        arguments += {"keyup", QByteArray::number(key)};
    desktop.run("xdotool", arguments);
}

} // namespace

class GlobalHotKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void reachesTheRightWorkspace();
    void refusesWhatAnotherProgramOwns();
    void keepsOneGrabThroughEveryChange();
    void takesAHeldKeyForOnePress();
    void followsTheLayout();

private:
    /// The places of those whose hot keys work.
    QList<int> registerAll(const ShortcutWorkspaces& workspaces)
    {
        const auto registering =
            m_manager->registerHotKeys(workspaces.list(), [this](const QUuid& id) {
                m_triggered.append(placesOf({id}).value(0));
            });
        return placesOf(registering.result());
    }

    QList<int> placesOf(const QSet<QUuid>& ids) const
    {
        QList<int> places;
        for (int index = 1; index <= 5; ++index) {
            if (ids.contains(m_workspaces.id(size_t(index))))
                places.append(index);
        }
        return places;
    }

    void press(const Keycodes& keycodes,
               const Keycodes& modifierKeys = {leftControlKey, leftAltKey})
    {
        QByteArrayList actions;
        for (const quint8 keycode : keycodes)
            actions += {"key", QByteArray::number(keycode)};
        hold(*m_desktop, modifierKeys, actions);
    }

    /// Presses them all and then, as the end mark, the digit 5 at `lastKey`. Returns what was
    /// triggered before the mark.
    QList<int> triggeredBy(const Keycodes& keycodes, quint8 lastKey = digitKeys[4]);
    /// Whether the hot keys have followed a change of the layout, by which the digit 1 is at
    /// `firstKey` now. Grabbing keys to find out would get into the way of those that follow.
    bool haveFollowed(quint8 firstKey, quint8 lastKey = digitKeys[4]);
    Keycodes freeKeys();
    void setLocks(quint16 wanted);

    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<OtherProgram> m_other;
    std::unique_ptr<X11HotKeys> m_hotKeys;
    std::unique_ptr<GlobalHotKeyManager> m_manager;
    /// The workspace at place i has the shortcut at place i of the choices.
    const ShortcutWorkspaces m_workspaces{{0, 1, 2, 3, 4, 5}};
    /// As shortcut indexes.
    QList<int> m_triggered;
};

void GlobalHotKeysTest::initTestCase()
{
    m_desktop = std::make_unique<VirtualDesktop>(WindowManager::openbox);
    QVERIFY2(m_desktop->isReady(), qPrintable(m_desktop->error()));
}

void GlobalHotKeysTest::init()
{
    m_desktop->run("setxkbmap", {"us"});
    m_desktop->run("xset", {"r", "rate", "660", "25"});
    m_other = std::make_unique<OtherProgram>(*m_desktop);
    setLocks(0);
    m_hotKeys = std::make_unique<X11HotKeys>(m_desktop->displayName());
    m_manager = std::make_unique<GlobalHotKeyManager>(*m_hotKeys);
    m_triggered.clear();
}

void GlobalHotKeysTest::cleanup()
{
    m_manager.reset();
    m_hotKeys.reset();
    m_other.reset();
}

QList<int> GlobalHotKeysTest::triggeredBy(const Keycodes& keycodes, quint8 lastKey)
{
    m_triggered.clear();
    press(keycodes + Keycodes{lastKey});
    // It may be among the others, too.
    const auto count = keycodes.count(lastKey) + 1;
    if (!waitUntil([&] { return m_triggered.count(5) == count; }))
        return {-1};
    m_triggered.removeLast();
    return m_triggered;
}

bool GlobalHotKeysTest::haveFollowed(quint8 firstKey, quint8 lastKey)
{
    m_triggered.clear();
    const bool isThere = waitUntil([&] {
        press({firstKey});
        return m_triggered.contains(1);
    });
    // Presses are told in their order: none of those is left after this one.
    triggeredBy({}, lastKey);
    return isThere;
}

Keycodes GlobalHotKeysTest::freeKeys()
{
    Keycodes result = digitKeys;
    result.removeIf([this](quint8 keycode) { return !m_other->isFree(keycode); });
    return result;
}

void GlobalHotKeysTest::setLocks(quint16 wanted)
{
    const quint16 toggled = m_other->lockState() ^ wanted;
    if ((toggled & lock) != 0)
        m_desktop->run("xdotool", {"key", "Caps_Lock"});
    if ((toggled & numLock) != 0)
        m_desktop->run("xdotool", {"key", "Num_Lock"});
    QCOMPARE(m_other->lockState(), wanted);
}

void GlobalHotKeysTest::reachesTheRightWorkspace()
{
    for (const char* layout : {"us", "fr"}) {
        m_desktop->run("setxkbmap", {layout});
        registerAll(m_workspaces);
        QVERIFY(haveFollowed(digitKeys[0]));
        for (const int locks : {0, +lock, +numLock, lock | numLock}) {
            setLocks(quint16(locks));
            QCOMPARE(triggeredBy({10, 11, 12, 13, 14, 13, 10}), (QList{1, 2, 3, 4, 5, 4, 1}));
        }
        setLocks(0);
    }
}

void GlobalHotKeysTest::refusesWhatAnotherProgramOwns()
{
    const quint8 second = digitKeys[1];
    for (const quint16 modifiers :
         {controlAlt, quint16(controlAlt | lock | numLock), anyModifier}) {
        QVERIFY(m_other->grab(second, modifiers));
        QCOMPARE(registerAll(m_workspaces), (QList{1, 3, 4, 5}));
        for (const int locks : {0, lock | numLock}) {
            setLocks(quint16(locks));
            QCOMPARE(triggeredBy({10, 11, 12, 13}), (QList{1, 3, 4}));
        }
        // No combination with a lock is left behind.
        m_other->ungrab(second, modifiers);
        QCOMPARE(freeKeys(), Keycodes{second});
    }
    registerAll(m_workspaces);
    QCOMPARE(triggeredBy({11}), QList{2});
}

void GlobalHotKeysTest::keepsOneGrabThroughEveryChange()
{
    for (const QList<int>& indexes : {QList{1, 2, 3}, {5, 3, 4, 3}, {}, {2}, {1, 2, 3, 4, 5}}) {
        registerAll(ShortcutWorkspaces(indexes));
        Keycodes unused = digitKeys;
        unused.removeIf([&](quint8 key) { return indexes.contains(key - digitKeys[0] + 1); });
        QTRY_COMPARE(freeKeys(), unused);
    }
    registerAll(m_workspaces);
    registerAll(m_workspaces);
    // Fewer and more modifiers are no shortcut.
    press(digitKeys, {leftControlKey});
    press(digitKeys, {leftControlKey, leftAltKey, shiftKey});
    QCOMPARE(triggeredBy({10, 11}), (QList{1, 2}));
    m_manager.reset();
    QTRY_COMPARE(freeKeys(), digitKeys);
    const QList<HotKey> first{{1, Qt::CTRL | Qt::ALT | Qt::Key_1}};
    QCOMPARE(m_hotKeys->setHotKeys(first, [](quint32) {}).result(), QList<quint32>{1});
    QVERIFY(!m_other->isFree(10));
    m_hotKeys.reset();
    QTRY_VERIFY(m_other->isFree(10));
}

void GlobalHotKeysTest::takesAHeldKeyForOnePress()
{
    registerAll(m_workspaces);
    m_desktop->run("xset", {"r", "rate", "100", "50"});
    const auto holdKey = [this](quint8 key) {
        const QByteArray name = QByteArray::number(key);
        hold(*m_desktop, {leftControlKey, leftAltKey},
             {"keydown", name, "sleep", "0.5", "keyup", name});
    };
    // Another program's key shows that keys do repeat here.
    QVERIFY(m_other->grab(sixKey, controlAlt));
    holdKey(sixKey);
    QVERIFY(m_other->takePressCount() > 3);
    for (const int pressCount : {1, 2}) {
        holdKey(10);
        QTRY_COMPARE(m_triggered, QList<int>(pressCount, 1));
    }
    QCOMPARE(triggeredBy({11}), QList{2});
}

void GlobalHotKeysTest::followsTheLayout()
{
    registerAll(m_workspaces);
    // Its number row reads [ 7 5 3 1 9 0 2 4 6 8.
    m_desktop->run("setxkbmap", {"us", "dvorak-classic"});
    QVERIFY(haveFollowed(14, 12));
    QCOMPARE(freeKeys(), (Keycodes{10, 11}));
    QCOMPARE(triggeredBy({10, 13, 14, 15, 17, 18}, 12), (QList{3, 1, 2, 4}));
    m_desktop->run("setxkbmap", {"fr"});
    QVERIFY(haveFollowed(digitKeys[0]));
    QVERIFY(freeKeys().isEmpty());
    QVERIFY(m_other->isFree(17));
    QCOMPARE(triggeredBy({10, 11, 12, 13, 17}), (QList{1, 2, 3, 4}));
}

QTEST_GUILESS_MAIN(GlobalHotKeysTest)
#include "GlobalHotKeysTest.moc"
