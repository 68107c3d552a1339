// SPDX-License-Identifier: MIT
//
// A certificate authority of the test's own, made with the openssl command in a folder that goes
// with it. Main thread of a test.
#pragma once

#include "lab/Files.h"

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTemporaryDir>

#include <cstdlib>

namespace trovell::test {

using namespace lab;

using namespace Qt::StringLiterals;

class TestAuthority {
public:
    TestAuthority() { makeCertificate(u"authority"_s, {}); }

    /// What a client that trusts only this authority is set up with.
    [[nodiscard]] QSslConfiguration clientConfiguration() const
    {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates(QSslCertificate::fromPath(path(u"authority.pem"_s)));
        return configuration;
    }

    /// For a server, with a certificate for `subject`, such as "IP:127.0.0.1" or
    /// "DNS:elsewhere.example".
    [[nodiscard]] QSslConfiguration serverConfiguration(const QString& subject) const
    {
        makeCertificate(u"server"_s,
                        u"-CA authority.pem -CAkey authority.key -addext subjectAltName="_s +
                            subject);
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setLocalCertificateChain(QSslCertificate::fromPath(path(u"server.pem"_s)));
        configuration.setPrivateKey(QSslKey(readFile(path(u"server.key"_s)), QSsl::Ec));
        return configuration;
    }

private:
    /// Not with QProcess, whose way of starting makes the thread sanitizer take this process for
    /// its own child and give up.
    void makeCertificate(const QString& name, const QString& options) const
    {
        const QString command =
            u"cd '%1' && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 "
            u"-nodes -days 7 -keyout %2.key -out %2.pem -subj '/CN=Test %2' %3 2>/dev/null"_s.arg(
                m_folder.path(), name, options);
        if (std::system(qPrintable(command)) != 0)
            qFatal("failed: %s", qPrintable(command));
    }

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

} // namespace trovell::test
