// A scripted https server on 127.0.0.1 with the manners, good and bad, of servers in the world.
// Main thread of a test; answers while the event loop runs.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSslConfiguration>
#include <QSslServer>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <optional>

class QSslSocket;

namespace trovell::test {

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
    explicit UpdateServer(const QSslConfiguration& configuration);

    [[nodiscard]] QUrl url(const QString& path) const;
    void serve(const QString& path, const ServedFile& file) { m_files.insert(path, file); }
    void redirect(const QString& path, const QByteArray& target);
    void stopListening() { m_server.close(); }

    /// The heads of all requests so far.
    [[nodiscard]] const QList<QByteArray>& requests() const { return m_requests; }

private:
    void accept();
    void answer(QSslSocket* socket);
    void send(QSslSocket* socket, const ServedFile& file);

    QTimer m_drips;
    QSslServer m_server;
    QHash<QString, ServedFile> m_files;
    QList<QByteArray> m_requests;
};

} // namespace trovell::test
