// SPDX-License-Identifier: MIT

#include "platform/sway/SwayConnection.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace trovell {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds ipcPatience = 2s;
constexpr QByteArrayView magic = "i3-ipc";
/// The magic text, the length of the content and its type, in the machine's byte order.
constexpr qsizetype headerSize = 14;
/// A tree of thousands of windows is far smaller.
constexpr quint32 longestContent = 64 << 20;
constexpr quint32 eventBit = 0x80000000;

quint32 numberAt(const QByteArray& bytes, qsizetype position)
{
    quint32 number = 0;
    std::memcpy(&number, bytes.constData() + position, sizeof number);
    return number;
}

QByteArray bytesOf(quint32 number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

} // namespace

SwayConnection::SwayConnection(const QByteArray& socketPath)
{
    sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
    if (socketPath.isEmpty() || socketPath.size() >= qsizetype(sizeof address.sun_path))
        return;
    std::ranges::copy(socketPath, address.sun_path);
    m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (m_socket >= 0 &&
        ::connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        close();
}

SwayConnection::~SwayConnection()
{
    close();
}

void SwayConnection::close()
{
    if (m_socket >= 0)
        ::close(m_socket);
    m_socket = -1;
}

qint32 SwayConnection::serverProcess() const
{
    ucred credentials = {};
    socklen_t size = sizeof credentials;
    const bool isKnown = ::getsockopt(m_socket, SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0;
    return isKnown ? credentials.pid : 0;
}

std::optional<QList<QJsonValue>> SwayConnection::ask(const QList<Question>& questions)
{
    const Time until = std::chrono::steady_clock::now() + ipcPatience;
    for (const Question question : questions)
        send(question, {}, until);
    QList<QJsonValue> answers;
    for (const Question question : questions) {
        const auto answer = receive(question, until);
        if (!answer)
            return std::nullopt;
        answers.append(*answer);
    }
    return answers;
}

std::optional<QJsonValue> SwayConnection::ask(Question question, const QByteArray& content)
{
    const Time until = std::chrono::steady_clock::now() + ipcPatience;
    send(question, content, until);
    return receive(question, until);
}

bool SwayConnection::run(const QByteArrayList& commands)
{
    return commands.isEmpty() || ask(Question::runCommand, commands.join("; ")).has_value();
}

void SwayConnection::send(Question question, const QByteArray& content, Time until)
{
    QByteArray rest = magic.toByteArray() + bytesOf(quint32(content.size())) +
                      bytesOf(quint32(question)) + content;
    while (isAlive() && !rest.isEmpty()) {
        const ssize_t count = ::send(m_socket, rest.constData(), size_t(rest.size()), MSG_NOSIGNAL);
        if (count > 0)
            rest.remove(0, count);
        else if (errno != EAGAIN || !wait(POLLOUT, until))
            close();
    }
}

bool SwayConnection::wait(short events, Time until)
{
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now());
    pollfd descriptor = {m_socket, events, 0};
    return isAlive() && left > 0ms && ::poll(&descriptor, 1, int(left.count())) > 0;
}

bool SwayConnection::receiveSome()
{
    constexpr qsizetype piece = 1 << 16;
    const qsizetype before = m_buffer.size();
    m_buffer.resize(before + piece);
    const ssize_t count = isAlive() ? ::recv(m_socket, m_buffer.data() + before, piece, 0) : -1;
    const bool hasNothingYet = count < 0 && errno == EAGAIN;
    m_buffer.resize(before + std::max(count, ssize_t(0)));
    if (count <= 0 && !hasNothingYet)
        close();
    return count > 0;
}

std::optional<SwayConnection::Message> SwayConnection::takeMessage()
{
    if (m_buffer.size() < headerSize)
        return std::nullopt;
    const quint32 length = numberAt(m_buffer, magic.size());
    if (!m_buffer.startsWith(magic) || length > longestContent) {
        close();
        return std::nullopt;
    }
    if (m_buffer.size() < headerSize + qsizetype(length))
        return std::nullopt;
    const Message message{numberAt(m_buffer, magic.size() + qsizetype(sizeof length)),
                          m_buffer.mid(headerSize, length)};
    m_buffer.remove(0, headerSize + qsizetype(length));
    return message;
}

std::optional<QJsonValue> SwayConnection::parse(const QByteArray& content)
{
    const QJsonDocument document = QJsonDocument::fromJson(content);
    if (document.isArray())
        return document.array();
    if (document.isObject())
        return document.object();
    close();
    return std::nullopt;
}

std::optional<QJsonValue> SwayConnection::receive(Question question, Time until)
{
    while (isAlive()) {
        const auto message = takeMessage();
        if (!message) {
            // A late answer would be taken for that to the next question.
            if (!wait(POLLIN, until) || (!receiveSome() && !isAlive()))
                close();
            continue;
        }
        const auto content = parse(message->content);
        if (content && message->type == quint32(question))
            return content;
        if (content && (message->type & eventBit) != 0)
            m_events.append({message->type, *content});
        else
            close();
    }
    return std::nullopt;
}

QList<SwayConnection::Event> SwayConnection::takeEvents()
{
    while (isAlive() && receiveSome()) {
    }
    while (const auto message = takeMessage()) {
        if (const auto content = parse(message->content))
            m_events.append({message->type, *content});
    }
    return std::exchange(m_events, {});
}

} // namespace trovell
