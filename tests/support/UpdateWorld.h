// A program, its private folder, and a server that offers it an update: all is well until a test
// changes something. Main thread of a test.
#pragma once

#include "services/update/Updater.h"
#include "support/TestAuthority.h"
#include "support/UpdatePublisher.h"
#include "support/UpdateServer.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace trovell::test {

struct UpdateWorld {
    inline static const QString feedPath = u"/feed.xml"_qs;
    inline static const QString packagePath = u"/files/trovell-2.0_amd64.deb"_qs;

    UpdateWorld(const TestAuthority& authority, const QSslConfiguration& serverConfiguration);

    /// Serves the package, and the feed with the item as it is now.
    void publish();
    void changeItem(QString PublishedItem::*field, const QString& value);
    void serveFeed(const ServedFile& file) { server.serve(feedPath, file); }
    void servePackage(const ServedFile& file) { server.serve(packagePath, file); }

    [[nodiscard]] std::unique_ptr<Updater> makeUpdater() const;
    /// What lies in the private folder.
    [[nodiscard]] QStringList files() const;
    /// Failed in the right words, with nothing left on the disk and nothing installed.
    void verifyFailed(const Updater& updater, UpdateError error) const;

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
void wait(const Updater& updater);
void check(Updater& updater);
void download(Updater& updater);

} // namespace trovell::test
