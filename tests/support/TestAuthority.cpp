#include "support/TestAuthority.h"

#include <QFile>
#include <QSslKey>

#include <cstdlib>

namespace trovell::test {

namespace {

/// Not with QProcess, whose way of starting makes the thread sanitizer take this process for its
/// own child and give up.
void runOpenssl(const QStringList& arguments)
{
    const QString command = u"openssl '"_qs + arguments.join(u"' '"_qs) + u"' 2>/dev/null"_qs;
    if (std::system(qPrintable(command)) != 0)
        qFatal("failed: %s", qPrintable(command));
}

QStringList certificateArguments(const QString& key, const QString& certificate)
{
    return u"req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 7"_qs.split(
               u' ') +
           QStringList{u"-keyout"_qs, key, u"-out"_qs, certificate};
}

} // namespace

TestAuthority::TestAuthority()
{
    runOpenssl(certificateArguments(path(u"authority.key"_qs), path(u"authority.pem"_qs)) +
               QStringList{u"-subj"_qs, u"/CN=Test authority"_qs});
}

QSslConfiguration TestAuthority::clientConfiguration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(QSslCertificate::fromPath(path(u"authority.pem"_qs)));
    return configuration;
}

QSslConfiguration TestAuthority::serverConfiguration(const QString& subject) const
{
    const QString key = path(u"server.key"_qs);
    const QString certificate = path(u"server.pem"_qs);
    runOpenssl(certificateArguments(key, certificate) +
               QStringList{u"-CA"_qs, path(u"authority.pem"_qs), u"-CAkey"_qs,
                           path(u"authority.key"_qs), u"-subj"_qs, u"/CN=Test server"_qs,
                           u"-addext"_qs, u"subjectAltName="_qs + subject});
    QFile keyFile(key);
    if (!keyFile.open(QIODevice::ReadOnly))
        qFatal("The server has no key.");
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(certificate));
    configuration.setPrivateKey(QSslKey(&keyFile, QSsl::Ec));
    return configuration;
}

} // namespace trovell::test
