// SPDX-License-Identifier: MIT
//
// A scripted https server on 127.0.0.1 with the manners, good and bad, of servers in the world.
// Main thread of a test; answers while the event loop runs.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSslConfiguration>
#include <QSslServer>
#include <QSslSocket>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <optional>

namespace trovell::test {

using namespace Qt::StringLiterals;

/// An answer to one path.
struct ServedFile {
    enum class After { close, silence, drip };

    QByteArray body = {};
    int status = 200;
    /// Whole lines.
    QList<QByteArray> headers = {};
    /// Announced instead of the true length; negative: not announced.
    std::optional<qint64> contentLength = {};
    /// So many bytes of the body are sent, and `after` follows; none: all of them.
    std::optional<qsizetype> breaksAt = {};
    /// Close the connection, say nothing more, or send a byte now and then for ever.
    After after = After::close;
};

class UpdateServer {
public:
    explicit UpdateServer(const QSslConfiguration& configuration)
    {
        m_server.setSslConfiguration(configuration);
        m_drips.start(20);
        QObject::connect(&m_server, &QTcpServer::pendingConnectionAvailable, &m_server,
                         [this] { accept(); });
        if (!m_server.listen(QHostAddress::LocalHost))
            qFatal("The test server cannot listen.");
    }

    [[nodiscard]] QUrl url(const QString& path) const
    {
        return QUrl(u"https://127.0.0.1:%1%2"_s.arg(m_server.serverPort()).arg(path));
    }
    void serve(const QString& path, const ServedFile& file) { m_files.insert(path, file); }
    void redirect(const QString& path, const QByteArray& target)
    {
        serve(path, {.body = "Gone elsewhere.",
                     .status = 302,
                     .headers = {"Location: " + target, "Set-Cookie: redirected=1; Path=/"}});
    }
    void stopListening() { m_server.close(); }

    /// The heads of all requests so far.
    [[nodiscard]] const QList<QByteArray>& requests() const { return m_requests; }

private:
    static QByteArray head(const ServedFile& file)
    {
        QByteArray head = "HTTP/1.1 " + QByteArray::number(file.status) + " Scripted\r\n";
        const qint64 length = file.contentLength.value_or(file.body.size());
        if (length >= 0)
            head += "Content-Length: " + QByteArray::number(length) + "\r\n";
        for (const QByteArray& header : file.headers)
            head += header + "\r\n";
        return head + "Connection: close\r\n\r\n";
    }

    void accept()
    {
        auto* socket = qobject_cast<QSslSocket*>(m_server.nextPendingConnection());
        QObject::connect(socket, &QIODevice::readyRead, socket, [this, socket] { answer(socket); });
        QObject::connect(socket, &QAbstractSocket::disconnected, socket, &QObject::deleteLater);
    }

    void answer(QSslSocket* socket)
    {
        const QByteArray request = socket->peek(socket->bytesAvailable());
        if (!request.contains("\r\n\r\n"))
            return;
        socket->skip(request.size());
        m_requests.append(request);
        const QString path = QString::fromLatin1(request.split(' ').value(1));
        send(socket, m_files.value(path, ServedFile{.status = 404}));
    }

    void send(QSslSocket* socket, const ServedFile& file)
    {
        socket->write(head(file) + file.body.left(file.breaksAt.value_or(file.body.size())));
        if (!file.breaksAt || file.after == ServedFile::After::close)
            socket->disconnectFromHost();
        else if (file.after == ServedFile::After::drip)
            QObject::connect(&m_drips, &QTimer::timeout, socket, [socket] { socket->write(" "); });
    }

    QTimer m_drips;
    QSslServer m_server;
    QHash<QString, ServedFile> m_files;
    QList<QByteArray> m_requests;
};

} // namespace trovell::test
