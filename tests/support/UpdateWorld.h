// SPDX-License-Identifier: MIT
//
// A program, its private folder, and a server that offers it an update: all is well until a test
// changes something. Main thread of a test.
#pragma once

#include "services/update/Updater.h"
#include "support/Patience.h"
#include "support/TestAuthority.h"
#include "support/UpdatePublisher.h"
#include "support/UpdateServer.h"

#include <QTest>

#include <memory>

namespace trovell::test {

using namespace Qt::StringLiterals;

struct UpdateWorld {
    inline static const QString feedPath = u"/feed.xml"_s;
    inline static const QString packagePath = u"/files/trovell-2.0_amd64.deb"_s;

    UpdateWorld(const TestAuthority& authority, const QSslConfiguration& serverConfiguration)
        : server(serverConfiguration)
    {
        environment = standardUpdateEnvironment(u"1.5"_s, [this](const QString& path) {
            openedPackages.append(path);
            return hasInstaller;
        });
        environment.downloadFolder = folder.filePath(u"trovell/update"_s);
        environment.tls = authority.clientConfiguration();
        item = {.address = server.url(packagePath).toString(),
                .length = QString::number(package.size()),
                .signature = publisher.signature(package),
                .notes = u"What is <b>new</b>"_s};
        publish();
    }

    void serveFeed(const ServedFile& file) { server.serve(feedPath, file); }
    void servePackage(const ServedFile& file) { server.serve(packagePath, file); }
    /// Serves the package, and the feed with the item as it is now.
    void publish()
    {
        serveFeed({.body = feedOf({item})});
        servePackage({.body = package});
    }
    void changeItem(QString PublishedItem::* field, const QString& value)
    {
        item.*field = value;
        publish();
    }

    [[nodiscard]] std::unique_ptr<Updater> makeUpdater() const
    {
        return std::make_unique<Updater>(server.url(feedPath), publisher.publicKey(), environment);
    }

    /// What lies in the private folder.
    [[nodiscard]] QStringList files() const
    {
        return QDir(environment.downloadFolder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    /// Failed in the right words, with nothing left on the disk and nothing installed.
    void verifyFailed(const Updater& updater, UpdateError error) const
    {
        const UpdateState expected{
            .phase = UpdateState::Phase::failed, .reason = description(error), .error = error};
        QVERIFY2(updater.state() == expected, qPrintable(updater.state().reason.productText()));
        QCOMPARE(files(), QStringList());
        QVERIFY(openedPackages.isEmpty() || error == UpdateError::installerFailed);
    }

    QTemporaryDir folder;
    UpdatePublisher publisher;
    QByteArray package = QByteArray("A package, and not a small one. ").repeated(100'000);
    PublishedItem item;
    UpdateServer server;
    UpdateEnvironment environment;
    QStringList openedPackages;
    bool hasInstaller = true;
};

/// To the end of what is going on.
inline void wait(const Updater& updater)
{
    QTRY_VERIFY(!updater.isBusy());
}

inline void check(Updater& updater)
{
    updater.check();
    wait(updater);
}

inline void download(Updater& updater)
{
    updater.download();
    wait(updater);
}

} // namespace trovell::test
