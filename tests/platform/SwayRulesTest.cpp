// SPDX-License-Identifier: MIT
//
// The adapter for sway and i3 without either: a server that says what it wants, what is read from
// the configuration, and how workspaces and tiled windows are counted and ordered.

#include "platform/sway/SwayReading.h"
#include "platform/sway/SwayTiling.h"
#include "platform/sway/SwayWorkspaces.h"

#include <QTemporaryDir>
#include <QTest>

#include <cstring>
#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

QByteArray message(quint32 type, const QByteArray& content)
{
    const auto length = quint32(content.size());
    QByteArray bytes = "i3-ipc";
    bytes.append(reinterpret_cast<const char*>(&length), sizeof length);
    bytes.append(reinterpret_cast<const char*>(&type), sizeof type);
    return bytes + content;
}

/// Says the same to whoever connects first, once something was asked, and then is gone or stays
/// silent.
class ScriptedServer {
public:
    ScriptedServer(const QByteArray& answer, bool isToVanish)
    {
        sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
        std::ranges::copy(path(), address.sun_path);
        m_listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        ::bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        ::listen(m_listener, 1);
        m_thread = std::jthread([this, answer, isToVanish](const std::stop_token& stop) {
            const int client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
            pollfd asked = {client, POLLIN, 0};
            ::poll(&asked, 1, -1);
            qsizetype sent = 0;
            while (sent < answer.size()) {
                const ssize_t count = ::send(client, answer.constData() + sent,
                                             size_t(answer.size() - sent), MSG_NOSIGNAL);
                if (count <= 0)
                    break;
                sent += count;
            }
            while (!isToVanish && !stop.stop_requested())
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            ::close(client);
        });
    }
    ~ScriptedServer() { ::close(m_listener); }
    Q_DISABLE_COPY_MOVE(ScriptedServer)

    [[nodiscard]] QByteArray path() const { return QFile::encodeName(m_folder.filePath(u"s"_s)); }

private:
    QTemporaryDir m_folder;
    int m_listener = -1;
    std::jthread m_thread;
};

QByteArray deepTree(int depth)
{
    const QByteArray leaf =
        R"({"type":"con","id":5,"pid":7,"name":"deep","rect":{"x":1,"y":2,"width":3,"height":4}})";
    const QByteArray open = R"({"type":"con","nodes":[)";
    return open.repeated(depth) + leaf + QByteArray("]}").repeated(depth);
}

SwayWindow tiledWindow(quint64 number, const QRectF& frame)
{
    SwayWindow window;
    window.id = {number, number};
    window.frame = frame;
    return window;
}

} // namespace

class SwayRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void badAnswersEndTheConnection_data();
    void badAnswersEndTheConnection();
    void readsDeepAndLargeTrees();
    void findsKeysInTheConfiguration();
    void numbersWorkspaces();
    void ordersTiledWindows();
};

void SwayRulesTest::badAnswersEndTheConnection_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isToVanish");
    QTest::newRow("nothing, gone") << QByteArray() << true;
    QTest::newRow("silence") << QByteArray() << false;
    QTest::newRow("half a message, gone") << message(4, R"({"nodes": []})").chopped(4) << true;
    QTest::newRow("half a message, silence") << message(4, R"({"nodes": []})").chopped(4) << false;
    QTest::newRow("other protocol") << QByteArray("HTTP/1.1 400 Bad Request\r\n\r\n") << false;
    QTest::newRow("no JSON") << message(4, "tree") << false;
    QTest::newRow("half JSON") << message(4, R"({"nodes": [)") << false;
    QTest::newRow("no object") << message(4, "12") << false;
    QTest::newRow("other answer") << message(1, "[]") << false;
    QTest::newRow("endless") << QByteArray("i3-ipc\xff\xff\xff\x7f\x04\0\0\0", 14) << false;
    QTest::newRow("too deep") << message(4, deepTree(100'000)) << false;
}

void SwayRulesTest::badAnswersEndTheConnection()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, isToVanish);
    const ScriptedServer server(answer, isToVanish);
    SwayConnection connection(server.path());
    QVERIFY(connection.isAlive());
    QVERIFY(!readSwayTree(connection));
    QVERIFY(!connection.isAlive());
    QVERIFY(!connection.run({"nop"}));
}

void SwayRulesTest::readsDeepAndLargeTrees()
{
    const QByteArray padding(10'000'000, 'x');
    const QByteArray tree =
        R"({"type":"root","name":")" + padding + R"(","nodes":[)" + deepTree(200) + "]}";
    // An event in between, and workspaces and outputs that make no sense.
    const ScriptedServer server(message(0x80000000, "{}") + message(4, tree) +
                                    message(1, R"([7, {"name": []}])") + message(3, R"({})"),
                                false);
    SwayConnection connection(server.path());
    const auto read = readSwayTree(connection);
    QVERIFY(read);
    QCOMPARE(read->windows.size(), 1);
    QCOMPARE(read->windows[0].title, u"deep"_s);
    QCOMPARE(read->windows[0].frame, QRectF(1, 2, 3, 4));
    QVERIFY(read->displays.isEmpty());
}

void SwayRulesTest::findsKeysInTheConfiguration()
{
    const SwayConfiguration configuration(uR"(
# bindsym Ctrl+Alt+9 nop
set $mod Mod1
set $modifiers Control+$mod
  bindsym --no-warn --locked $modifiers+1 workspace number 1
bindsym 2+Alt+ctrl \
    exec true
bindsym {
    Ctrl+Mod1+3 nop
}
bindcode Ctrl+Mod1+13 nop
mode "resize" {
    bindsym Ctrl+Alt+5 resize grow width
}
bindsym $mod+6 nop
)"_s);
    QList<int> bound;
    for (int digit = 1; digit <= 9; ++digit) {
        const auto key = swayKey(Qt::CTRL | Qt::ALT | Qt::Key(Qt::Key_0 + digit));
        if (configuration.binds(*key))
            bound.append(digit);
    }
    QCOMPARE(bound, (QList{1, 2, 3, 4}));
    QVERIFY(configuration.binds(*swayKey(Qt::ALT | Qt::Key_6)));
    QVERIFY(!swayKey(Qt::CTRL | Qt::Key_A));
    QCOMPARE(swayKey(Qt::META | Qt::SHIFT | Qt::Key_0)->code, "Shift+Mod4+19");
}

void SwayRulesTest::numbersWorkspaces()
{
    const SwayConfiguration configuration(uR"(
set $mail "mail box"
bindsym Mod4+m workspace $mail
bindsym Mod4+c workspace chat; exec true
bindsym Mod4+2 move container to workspace number "2: web"
bindsym Mod4+Tab workspace back_and_forth
workspace 12 output DP-1
)"_s);
    SwayTree tree;
    for (const QString& name : {u"zoo"_s, u"1"_s, u"3: code"_s, u"chat"_s})
        tree.workspaces.append({name, -1, {}, {}});
    QCOMPARE(virtualDesktopNames(tree, configuration).join(u'|'),
             u"1|2: web|3: code|4|5|6|7|8|9|10|11|12|mail box|chat|zoo"_s);
    // A workspace that is gone changes nobody's number.
    QCOMPARE(virtualDesktopNames({}, configuration).indexOf(u"chat"_s), 13);
    QCOMPARE(workspaceArgument(u"3: code"_s), "number \"3: code\"");
    QCOMPARE(workspaceArgument(u"a\"; exit"_s), "\"a; exit\"");
}

void SwayRulesTest::ordersTiledWindows()
{
    const QList<QRectF> places{{0, 0, 400, 700}, {400, 0, 400, 350}, {400, 350, 400, 350}};
    const QList<SwayWindow> windows{tiledWindow(1, places[0]), tiledWindow(2, places[1]),
                                    tiledWindow(3, places[2])};
    QList<int> order{0, 1, 2};
    do {
        QHash<WindowId, QRectF> wanted;
        for (qsizetype index = 0; index < 3; ++index)
            wanted.insert(windows[index].id, places[order[index]]);
        QHash<WindowId, QRectF> now;
        for (const SwayWindow& window : windows)
            now.insert(window.id, window.frame);
        const auto swaps = swapsFor(windows, wanted);
        for (const auto& [first, second] : swaps)
            std::swap(now[first], now[second]);
        QCOMPARE(now, wanted);
    } while (std::ranges::next_permutation(order).found);
}

QTEST_GUILESS_MAIN(SwayRulesTest)
#include "SwayRulesTest.moc"
