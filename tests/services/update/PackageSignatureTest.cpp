// SPDX-License-Identifier: MIT

#include "services/update/PackageSignature.h"

#include "lab/Files.h"
#include "support/UpdatePublisher.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::lab;
using namespace trovell::test;

namespace {

QString base64(const QByteArray& hexadecimal)
{
    return QString::fromLatin1(QByteArray::fromHex(hexadecimal).toBase64());
}

} // namespace

class PackageSignatureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// RFC 8032, section 7.1, test 3.
    void agreesWithTheStandard()
    {
        const auto key = publicKeyFromText(
            base64("fc51cd8e6218a1a38da47ed00230f0580816ed13ba3303ac5deb911548908025"));
        const auto signature = signatureFromText(
            base64("6291d657deec24024827e69c3abe01a30ce548a284743a445e3680d7db5ac3ac"
                   "18ff9b538d16f290ae67f760984dc6594a7c15e9716ed28dc027beceea1ec40a"));
        QVERIFY(key && signature);
        QVERIFY(verifyPackage(package("\xaf\x82"), *signature, *key).has_value());
    }

    void refusesWhatWasNotSigned()
    {
        const UpdatePublisher publisher;
        const QByteArray content(300'000, 'x');
        const auto key = *publicKeyFromText(publisher.publicKey());
        const auto signature = *signatureFromText(publisher.signature(content));
        QVERIFY(verifyPackage(package(content), signature, key).has_value());

        const auto error = [this](const QByteArray& bytes, const auto& claimed,
                                  const auto& publicKey) {
            return verifyPackage(package(bytes), claimed, publicKey).error();
        };
        QByteArray changed = content;
        changed[150'000] = 'y';
        PackageSignature otherSignature = signature;
        otherSignature[0] ^= 1;
        const auto otherKey = *publicKeyFromText(UpdatePublisher().publicKey());
        QCOMPARE(error(changed, signature, key), UpdateError::signatureWrong);
        QCOMPARE(error(content.chopped(1), signature, key), UpdateError::signatureWrong);
        QCOMPARE(error(content, otherSignature, key), UpdateError::signatureWrong);
        QCOMPARE(error(content, signature, otherKey), UpdateError::signatureWrong);
        QCOMPARE(error({}, signature, key), UpdateError::fileNotReadable);
        QCOMPARE(verifyPackage(m_folder.filePath(u"missing"_s), signature, key).error(),
                 UpdateError::fileNotReadable);
    }

    void rejectsTexts()
    {
        const QString key = UpdatePublisher().publicKey();
        for (const QString& text :
             {QString(), QString(44, u'é'), base64(QByteArray("11").repeated(31)), key + u'\n',
              QString(key).insert(10, u' '), key.chopped(1),
              // Unused bits; a point of small order, for which anything would be genuine; no point.
              base64(QByteArray("00").repeated(32)).replace(u"A="_s, u"B="_s),
              base64("01" + QByteArray("00").repeated(31)),
              base64("02" + QByteArray("00").repeated(31))}) {
            QVERIFY2(!publicKeyFromText(text), qPrintable(text));
            QVERIFY2(!signatureFromText(text), qPrintable(text));
        }
    }

private:
    /// A file with that content.
    QString package(const QByteArray& content)
    {
        return writeFile(m_folder.filePath(u"package"_s), content);
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(PackageSignatureTest)
#include "PackageSignatureTest.moc"
