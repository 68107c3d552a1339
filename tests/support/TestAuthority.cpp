#include "support/TestAuthority.h"

#include <QFile>
#include <QSslKey>

#include <cstdlib>

namespace trovell::test {

/// Not with QProcess, whose way of starting makes the thread sanitizer take this process for its
/// own child and give up.
void TestAuthority::makeCertificate(const QString& name, const QString& options) const
{
    const QString command =
        u"cd '%1' && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes "
        u"-days 7 -keyout %2.key -out %2.pem -subj '/CN=Test %2' %3 2>/dev/null"_qs.arg(
            m_folder.path(), name, options);
    if (std::system(qPrintable(command)) != 0)
        qFatal("failed: %s", qPrintable(command));
}

QSslConfiguration TestAuthority::clientConfiguration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(QSslCertificate::fromPath(path(u"authority.pem"_qs)));
    return configuration;
}

QSslConfiguration TestAuthority::serverConfiguration(const QString& subject) const
{
    makeCertificate(u"server"_qs,
                    u"-CA authority.pem -CAkey authority.key -addext subjectAltName="_qs + subject);
    QFile key(path(u"server.key"_qs));
    if (!key.open(QIODevice::ReadOnly))
        qFatal("The server has no key.");
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(path(u"server.pem"_qs)));
    configuration.setPrivateKey(QSslKey(&key, QSsl::Ec));
    return configuration;
}

} // namespace trovell::test
