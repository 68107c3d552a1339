// SPDX-License-Identifier: MIT
//
// One connection to the IPC socket of sway or i3 (sway-ipc(7)). Never waits longer than it says;
// after the first error it is closed for good. One thread at a time.
#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QList>

#include <chrono>
#include <optional>

namespace trovell {

class SwayConnection {
public:
    using Time = std::chrono::steady_clock::time_point;

    enum class Question : quint32 {
        runCommand = 0,
        workspaces = 1,
        subscribe = 2,
        outputs = 3,
        tree = 4,
        configuration = 9,
    };
    struct Event {
        quint32 type = 0;
        QJsonValue content;
    };
    static constexpr quint32 bindingEvent = 0x80000005;

    /// Without a server at that path the connection is not alive.
    explicit SwayConnection(const QByteArray& socketPath);
    ~SwayConnection();
    SwayConnection(const SwayConnection&) = delete;
    SwayConnection& operator=(const SwayConnection&) = delete;

    [[nodiscard]] bool isAlive() const { return m_socket >= 0; }
    /// Becomes readable when an event arrives; -1 when it is not alive.
    [[nodiscard]] int descriptor() const { return m_socket; }
    /// Who listens at the other end; 0 when it is not known.
    [[nodiscard]] qint32 serverProcess() const;

    /// Asks several questions at once and waits two seconds at most. None when they were not
    /// answered, or not in the form of the protocol.
    [[nodiscard]] std::optional<QList<QJsonValue>> ask(const QList<Question>& questions);
    [[nodiscard]] std::optional<QJsonValue> ask(Question question, const QByteArray& content);
    /// Runs the commands in their order. False when it is not known whether they ran; what single
    /// commands came to is seen by looking.
    bool run(const QByteArrayList& commands);

    /// Those that arrived since the last call. Does not wait.
    [[nodiscard]] QList<Event> takeEvents();

private:
    struct Message {
        quint32 type = 0;
        QByteArray content;
    };

    void close();
    void send(Question question, const QByteArray& content, Time until);
    bool wait(short events, Time until);
    /// False when nothing came, or the connection is gone.
    bool receiveSome();
    [[nodiscard]] std::optional<Message> takeMessage();
    [[nodiscard]] std::optional<QJsonValue> receive(Question question, Time until);
    [[nodiscard]] std::optional<QJsonValue> parse(const QByteArray& content);

    int m_socket = -1;
    QByteArray m_buffer;
    QList<Event> m_events;
};

} // namespace trovell
