// A certificate authority of the test's own, made with the openssl command in a folder that goes
// with it. Main thread of a test.
#pragma once

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QString>
#include <QTemporaryDir>

namespace trovell::test {

class TestAuthority {
public:
    TestAuthority() { makeCertificate(u"authority"_qs, {}); }

    /// What a client that trusts only this authority is set up with.
    [[nodiscard]] QSslConfiguration clientConfiguration() const;
    /// For a server, with a certificate for `subject`, such as "IP:127.0.0.1" or
    /// "DNS:elsewhere.example".
    [[nodiscard]] QSslConfiguration serverConfiguration(const QString& subject) const;

private:
    void makeCertificate(const QString& name, const QString& options) const;
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

} // namespace trovell::test
