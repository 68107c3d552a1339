// SPDX-License-Identifier: MIT
//
// Makes the keys of a publisher, signs packages for the update feed and checks signatures.
#include "FeedItem.h"
#include "services/update/PackageSignature.h"
#include "services/update/UpdateFeedParser.h"
#include "SigningKey.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace trovell {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int misuse = 2;

const char* const usage =
    "sign-update make-key PRIVATE_KEY_FILE       makes a key pair, prints the public key\n"
    "sign-update public-key PRIVATE_KEY_FILE     prints the public key\n"
    "sign-update sign PRIVATE_KEY_FILE PACKAGE --version VERSION --url ADDRESS\n"
    "            [--short-version TEXT] [--minimum-system VERSION] [--notes FILE]\n"
    "                                            prints the item for the update feed\n"
    "sign-update verify PUBLIC_KEY PACKAGE SIGNATURE\n"
    "\n"
    "Keys and signatures are Base64. The private key is never printed.\n";

int say(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    return success;
}

int complain(const QString& text)
{
    std::fputs((text + u'\n').toUtf8().constData(), stderr);
    return failure;
}

int printPublicKey(const Expected<SigningKey, SigningError>& key)
{
    return key ? say(key->publicKey() + u'\n') : complain(description(key.error()));
}

/// None when the file cannot be read.
std::optional<QString> fileText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return QString::fromUtf8(file.readAll()).trimmed();
}

/// Prints the item only if the program would accept it.
int printItem(const FeedItem& item)
{
    const auto parsed = parseUpdateFeed(feedText(item).toUtf8());
    if (!parsed || !item.address.startsWith(u"https://"))
        return complain(u"Version, address or notes are not fit for a feed: the address must be "
                        u"https, the versions numbers with dots."_s);
    return say(feedItemText(item));
}

int sign(const QString& keyPath, const QString& packagePath, const QCommandLineParser& options)
{
    const auto key = SigningKey::load(keyPath);
    if (!key)
        return complain(description(key.error()));
    const auto signature = key->sign(packagePath);
    if (!signature)
        return complain(description(signature.error()));
    const QString notesPath = options.value(u"notes"_s);
    const auto notes = notesPath.isEmpty() ? QString() : fileText(notesPath);
    if (!notes)
        return complain(u"The notes could not be read."_s);
    return printItem({.version = options.value(u"version"_s),
                      .shortVersion = options.value(u"short-version"_s),
                      .minimumSystemVersion = options.value(u"minimum-system"_s),
                      .notes = *notes,
                      .address = options.value(u"url"_s),
                      .lengthBytes = QFileInfo(packagePath).size(),
                      .signature = *signature});
}

int verify(const QString& publicKeyText, const QString& packagePath, const QString& signatureText)
{
    const auto key = publicKeyFromText(publicKeyText);
    const auto signature = signatureFromText(signatureText);
    if (!key || !signature)
        return complain(u"The public key or the signature is malformed."_s);
    if (!verifyPackage(packagePath, *signature, *key))
        return complain(u"The signature does not match the package."_s);
    return say(u"The signature matches.\n"_s);
}

int run(const QCommandLineParser& options)
{
    const QStringList arguments = options.positionalArguments();
    const QString command = arguments.value(0);
    if (command == u"make-key" && arguments.size() == 2)
        return printPublicKey(SigningKey::create(arguments[1]));
    if (command == u"public-key" && arguments.size() == 2)
        return printPublicKey(SigningKey::load(arguments[1]));
    if (command == u"sign" && arguments.size() == 3)
        return sign(arguments[1], arguments[2], options);
    if (command == u"verify" && arguments.size() == 4)
        return verify(arguments[1], arguments[2], arguments[3]);
    std::fputs(usage, stderr);
    return misuse;
}

} // namespace

} // namespace trovell

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser options;
    for (const QString& name :
         {u"version"_s, u"url"_s, u"short-version"_s, u"minimum-system"_s, u"notes"_s})
        options.addOption(QCommandLineOption(name, {}, name));
    if (options.parse(QCoreApplication::arguments()))
        return trovell::run(options);
    std::fputs(trovell::usage, stderr);
    return trovell::misuse;
}
