#include "support/UpdateServer.h"

#include <QSslSocket>

namespace trovell::test {

namespace {

QByteArray responseHead(const ServedFile& file)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(file.status) + " Scripted\r\n";
    const qint64 length = file.contentLength.value_or(file.body.size());
    if (length >= 0)
        head += "Content-Length: " + QByteArray::number(length) + "\r\n";
    for (const QByteArray& header : file.headers)
        head += header + "\r\n";
    return head + "Connection: close\r\n\r\n";
}

} // namespace

UpdateServer::UpdateServer(const QSslConfiguration& configuration)
{
    m_server.setSslConfiguration(configuration);
    m_drips.start(20);
    QObject::connect(&m_server, &QTcpServer::pendingConnectionAvailable, &m_server,
                     [this] { accept(); });
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("The test server cannot listen.");
}

QUrl UpdateServer::url(const QString& path) const
{
    return QUrl(u"https://127.0.0.1:%1%2"_qs.arg(m_server.serverPort()).arg(path));
}

void UpdateServer::redirect(const QString& path, const QByteArray& target)
{
    serve(path, {.body = "Gone elsewhere.",
                 .status = 302,
                 .headers = {"Location: " + target, "Set-Cookie: redirected=1; Path=/"}});
}

void UpdateServer::accept()
{
    auto* socket = qobject_cast<QSslSocket*>(m_server.nextPendingConnection());
    QObject::connect(socket, &QIODevice::readyRead, socket, [this, socket] { answer(socket); });
    QObject::connect(socket, &QAbstractSocket::disconnected, socket, &QObject::deleteLater);
}

void UpdateServer::answer(QSslSocket* socket)
{
    const QByteArray head = socket->peek(socket->bytesAvailable());
    if (!head.contains("\r\n\r\n"))
        return;
    socket->skip(head.size());
    m_requests.append(head);
    send(socket,
         m_files.value(QString::fromLatin1(head.split(' ').value(1)), ServedFile{.status = 404}));
}

void UpdateServer::send(QSslSocket* socket, const ServedFile& file)
{
    socket->write(responseHead(file));
    socket->write(file.body.left(file.breaksAt.value_or(file.body.size())));
    if (!file.breaksAt || file.after == ServedFile::After::close)
        socket->disconnectFromHost();
    else if (file.after == ServedFile::After::drip)
        QObject::connect(&m_drips, &QTimer::timeout, socket, [socket] { socket->write(" "); });
}

} // namespace trovell::test
