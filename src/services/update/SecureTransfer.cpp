// SPDX-License-Identifier: MIT

#include "services/update/SecureTransfer.h"

namespace trovell {

namespace {

constexpr int maximumRedirectCount = 5;
constexpr int okStatus = 200;
constexpr qint64 chunkBytes = 64 * 1024;
// What may wait for a slow disk.
constexpr qint64 bufferBytes = 1024 * 1024;

std::optional<UpdateError> updateError(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::NoError:
        return std::nullopt;
    case QNetworkReply::SslHandshakeFailedError:
        return UpdateError::serverNotTrusted;
    case QNetworkReply::RemoteHostClosedError:
        return UpdateError::connectionLost;
    // The silence was too long: every other end of ours has left its reason.
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TimeoutError:
        return UpdateError::timedOut;
    default:
        return UpdateError::serverUnreachable;
    }
}

} // namespace

bool isSecureAddress(const QUrl& address)
{
    return address.isValid() && address.scheme() == u"https" && !address.host().isEmpty();
}

SecureTransfer::SecureTransfer(const QSslConfiguration& tls, Limits limits, Sink sink)
    : m_tls(tls), m_limits(limits), m_sink(std::move(sink))
{
    m_tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    m_tls.setProtocol(QSsl::TlsV1_2OrLater);
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] { end(UpdateError::timedOut); });
}

SecureTransfer::~SecureTransfer()
{
    stop();
}

void SecureTransfer::start(const QUrl& address)
{
    if (!isSecureAddress(address)) {
        m_error = UpdateError::addressNotSecure;
        QMetaObject::invokeMethod(this, &SecureTransfer::finish, Qt::QueuedConnection);
        return;
    }
    if (m_limits.total)
        m_deadline.start(*m_limits.total);
    fetch(address);
}

void SecureTransfer::fetch(const QUrl& address)
{
    m_reply.reset(m_network.get(request(address)));
    m_reply->setReadBufferSize(bufferBytes);
    connect(m_reply.get(), &QNetworkReply::readyRead, this, &SecureTransfer::passOnBytes);
    // Queued, because Qt goes on with a reply that is aborted in the middle of its head, and
    // because a reply that the sink ends finishes from within the sink.
    connect(m_reply.get(), &QNetworkReply::metaDataChanged, this, &SecureTransfer::checkStatus,
            Qt::QueuedConnection);
    connect(m_reply.get(), &QNetworkReply::finished, this, &SecureTransfer::finish,
            Qt::QueuedConnection);
}

void SecureTransfer::stop()
{
    end(UpdateError::cancelled);
    if (m_reply)
        m_reply->disconnect(this);
    // A `finished` on its way is not let out.
    blockSignals(true);
}

/// The first reason counts.
void SecureTransfer::end(UpdateError error)
{
    if (!m_error)
        m_error = error;
    m_deadline.stop();
    if (m_reply && m_reply->isRunning())
        m_reply->abort();
}

int SecureTransfer::status() const
{
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

/// The page that comes with an error or a redirect may have any size: it is not waited for.
void SecureTransfer::checkStatus()
{
    if (status() != okStatus && m_reply->isRunning())
        m_reply->abort();
}

void SecureTransfer::passOnBytes()
{
    while (status() == okStatus && !m_error && m_reply->bytesAvailable() > 0)
        if (const auto error = m_sink(m_reply->read(chunkBytes)))
            end(*error);
}

void SecureTransfer::finish()
{
    if (m_error)
        return conclude();
    const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (!target.isEmpty())
        return follow(m_reply->url().resolved(target));
    m_error = failure();
    if (!m_error)
        passOnBytes();
    conclude();
}

/// Not left to Qt, which in 6.4 follows the second of two redirects twice when asked to have them
/// approved.
void SecureTransfer::follow(const QUrl& target)
{
    if (!isSecureAddress(target))
        end(UpdateError::redirectNotSecure);
    else if (++m_redirectCount > maximumRedirectCount)
        end(UpdateError::tooManyRedirects);
    else
        return fetch(target);
    conclude();
}

std::optional<UpdateError> SecureTransfer::failure() const
{
    // No status: the server did not get to answer.
    if (status() != 0 && status() != okStatus)
        return UpdateError::serverRefused;
    return updateError(m_reply->error());
}

void SecureTransfer::conclude()
{
    m_deadline.stop();
    Q_EMIT
    finished(m_error);
}

QNetworkRequest SecureTransfer::request(const QUrl& address) const
{
    QNetworkRequest request(address);
    request.setSslConfiguration(m_tls);
    request.setTransferTimeout(static_cast<int>(m_limits.silence.count()));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // Qt would send the user's language and its own name, and unpack what is compressed: bytes that
    // the limits of the sink would count too late.
    request.setRawHeader("Accept-Language", "*");
    request.setRawHeader("User-Agent", "Trovell");
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

} // namespace trovell
