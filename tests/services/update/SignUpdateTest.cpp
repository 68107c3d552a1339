// SPDX-License-Identifier: MIT
//
// The publisher's program, and that what it writes is what the updater accepts.
#include "lab/Files.h"
#include "services/update/PackageSignature.h"
#include "services/update/UpdateFeedParser.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

struct Run {
    int exitCode = -1;
    QString output;
    QString errors;
};

Run signUpdate(const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromUtf8(TROVELL_SIGN_UPDATE), arguments);
    if (!process.waitForFinished())
        qFatal("sign-update does not run.");
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

class SignUpdateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_key = path(u"key"_s);
        const Run made = signUpdate({u"make-key"_s, m_key});
        QCOMPARE(made.exitCode, 0);
        m_publicKey = made.output.trimmed();
        QVERIFY(publicKeyFromText(m_publicKey));
        m_package = write(u"package.deb"_s, QByteArray(100'000, 'x'));
    }

    void keepsThePrivateKeyPrivate()
    {
        QCOMPARE(QFile::permissions(m_key) & ~(QFile::ReadUser | QFile::WriteUser),
                 QFile::ReadOwner | QFile::WriteOwner);
        const QByteArray key = lab::readFile(m_key);
        QCOMPARE(key.size(), 45);

        const QList<QStringList> commands{
            {u"make-key"_s, m_key},
            {u"public-key"_s, m_key},
            {u"sign"_s, m_key, m_package, u"--version"_s, u"2"_s, u"--url"_s, u"https://a.b/c"_s}};
        for (const QStringList& command : commands) {
            const Run run = signUpdate(command);
            QVERIFY(!(run.output + run.errors).contains(QString::fromLatin1(key.trimmed())));
        }
        QCOMPARE(lab::readFile(m_key), key);
        QCOMPARE(signUpdate({u"public-key"_s, m_key}).output.trimmed(), m_publicKey);
    }

    void signsWhatTheUpdaterAccepts()
    {
        const QString notes = write(u"notes"_s, "New: <b> & \"quotes\"\n• more\n");
        const Run run =
            signUpdate({u"sign"_s, m_key, m_package, u"--version"_s, u"2.0.1"_s, u"--url"_s,
                        u"https://updates.example/p?a=1&b=2"_s, u"--short-version"_s, u"2"_s,
                        u"--minimum-system"_s, u"2.36"_s, u"--notes"_s, notes});
        QCOMPARE(run.exitCode, 0);
        const auto items =
            parseUpdateFeed("<rss xmlns:trovell='urn:x-trovell:update-feed'><channel>" +
                            run.output.toUtf8() + "</channel></rss>");
        QVERIFY(items.has_value());
        QCOMPARE(items->size(), 1);
        const QString signature = items->first().signature;
        const UpdateItem expected{.version = *ReleaseVersion::parse(u"2.0.1"_s),
                                  .shortVersion = u"2"_s,
                                  .notes = u"New: <b> & \"quotes\"\n• more"_s,
                                  .address = QUrl(u"https://updates.example/p?a=1&b=2"_s),
                                  .lengthBytes = 100'000,
                                  .signature = signature,
                                  .minimumSystemVersion = ReleaseVersion::parse(u"2.36"_s)};
        QCOMPARE(items->first(), expected);
        QVERIFY(verifyPackage(m_package, *signatureFromText(signature),
                              *publicKeyFromText(m_publicKey)));

        const QString other = write(u"other.deb"_s, QByteArray(100'000, 'y'));
        for (const QString& package : {m_package, other})
            QCOMPARE(signUpdate({u"verify"_s, m_publicKey, package, signature}).exitCode,
                     package == other);
    }

    void refuses()
    {
        const auto sign = [this](const QString& key, const QString& package, const QString& version,
                                 const QString& url) {
            return QStringList{u"sign"_s, key, package, u"--version"_s, version, u"--url"_s, url};
        };
        const QString url = u"https://a.b/c"_s;
        const QString open = write(u"open"_s, QByteArray(43, 'A') + "=\n");
        QFile(open).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
        const QString malformed = write(u"malformed"_s, QByteArray(42, 'A') + "==\n");
        QFile(malformed).setPermissions(QFile::ReadOwner);

        QCOMPARE(signUpdate({}).exitCode, 2);
        const QList<QStringList> refused{{u"make-key"_s, m_package}, // exists
                                         sign(open, m_package, u"2"_s, url),
                                         sign(malformed, m_package, u"2"_s, url),
                                         sign(m_key, m_package, u"two"_s, url),
                                         sign(m_key, m_package, u"2"_s, u"http://a.b/c"_s),
                                         sign(m_key, m_package, u"2"_s, url) +
                                             QStringList{u"--notes"_s, path(u"none"_s)}};
        for (const QStringList& arguments : refused) {
            const Run run = signUpdate(arguments);
            QCOMPARE(run.exitCode, 1);
            QVERIFY(run.output.isEmpty() && !run.errors.isEmpty());
        }
    }

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& content) const
    {
        return lab::writeFile(path(name), content);
    }

    QTemporaryDir m_folder;
    QString m_key;
    QString m_package;
    QString m_publicKey;
};

QTEST_GUILESS_MAIN(SignUpdateTest)
#include "SignUpdateTest.moc"
