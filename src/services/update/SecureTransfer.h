// SPDX-License-Identifier: MIT
//
// Fetches one file over https: redirects stay on https, the certificate must be valid, and nothing
// about the user or the machine is sent beyond the address. Main thread.
#pragma once

#include "services/update/UpdateError.h"

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace trovell {

/// An https address with a host.
[[nodiscard]] bool isSecureAddress(const QUrl& address);

class SecureTransfer final : public QObject {
    Q_OBJECT

public:
    /// Takes the next bytes, 64 KiB at most. An error ends the transfer with it.
    using Sink = std::function<std::optional<UpdateError>(const QByteArray& bytes)>;

    struct Limits {
        /// For the silence before and between bytes.
        std::chrono::milliseconds silence;
        /// For all of it; none for files whose time depends on the line.
        std::optional<std::chrono::milliseconds> total;
    };

    SecureTransfer(const QSslConfiguration& tls, Limits limits, Sink sink);
    ~SecureTransfer() override;

    /// Once.
    void start(const QUrl& address);
    /// Ends the transfer. Neither the sink nor `finished` is heard of again.
    void stop();

Q_SIGNALS:
    /// Once, never from within `start`; none when the whole file went to the sink.
    void finished(std::optional<UpdateError> error);

private:
    void fetch(const QUrl& address);
    void checkStatus();
    void passOnBytes();
    void finish();
    void follow(const QUrl& target);
    void end(UpdateError error);
    void conclude();

    /// Of the answer so far; 0 before there is one.
    [[nodiscard]] int status() const;
    [[nodiscard]] std::optional<UpdateError> failure() const;
    [[nodiscard]] QNetworkRequest request(const QUrl& address) const;

    QSslConfiguration m_tls;
    Limits m_limits;
    Sink m_sink;
    QTimer m_deadline;
    // Of its own, so that no connection, session or authentication is shared with another transfer.
    QNetworkAccessManager m_network;
    std::unique_ptr<QNetworkReply> m_reply;
    std::optional<UpdateError> m_error;
    int m_redirectCount = 0;
};

} // namespace trovell
