#include "support/UpdateWorld.h"

#include <QDir>
#include <QTest>

namespace trovell::test {

UpdateWorld::UpdateWorld(const TestAuthority& authority,
                         const QSslConfiguration& serverConfiguration)
    : server(serverConfiguration)
{
    environment = standardUpdateEnvironment(u"1.5"_qs, [this](const QString& path) {
        openedPackages.append(path);
        return hasInstaller;
    });
    environment.downloadFolder = folder.filePath(u"trovell/update"_qs);
    environment.tls = authority.clientConfiguration();
    item = {.address = server.url(packagePath).toString(),
            .length = QString::number(package.size()),
            .signature = publisher.signature(package),
            .notes = u"What is <b>new</b>"_qs};
    publish();
}

void UpdateWorld::publish()
{
    serveFeed({.body = feedOf({item})});
    servePackage({.body = package});
}

void UpdateWorld::changeItem(QString PublishedItem::*field, const QString& value)
{
    item.*field = value;
    publish();
}

std::unique_ptr<Updater> UpdateWorld::makeUpdater() const
{
    return std::make_unique<Updater>(server.url(feedPath), publisher.publicKey(), environment);
}

QStringList UpdateWorld::files() const
{
    return QDir(environment.downloadFolder)
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void UpdateWorld::verifyFailed(const Updater& updater, UpdateError error) const
{
    const UpdateState expected{
        .phase = UpdateState::Phase::failed, .sentence = description(error), .error = error};
    QVERIFY2(updater.state() == expected, qPrintable(updater.state().sentence));
    QVERIFY(!expected.sentence.isEmpty());
    QCOMPARE(files(), QStringList());
    QVERIFY(openedPackages.isEmpty() || error == UpdateError::installerFailed);
}

void wait(const Updater& updater)
{
    QTRY_VERIFY_WITH_TIMEOUT(!updater.isBusy(), 60'000);
}

void check(Updater& updater)
{
    updater.check();
    wait(updater);
}

void download(Updater& updater)
{
    updater.download();
    wait(updater);
}

} // namespace trovell::test
