// SPDX-License-Identifier: MIT

#include "services/update/UpdateEnvironment.h"

#include <QByteArray>
#include <QStandardPaths>

#include <unistd.h>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// The number in "glibc 2.36"; empty with another C library.
QString cLibraryVersion()
{
    QByteArray text(64, '\0');
    const std::size_t size =
        ::confstr(_CS_GNU_LIBC_VERSION, text.data(), static_cast<std::size_t>(text.size()));
    text.truncate(qMax<qsizetype>(static_cast<qsizetype>(size) - 1, 0));
    return QString::fromLatin1(text).section(u' ', 1, 1);
}

} // namespace

UpdateEnvironment standardUpdateEnvironment(const QString& programVersion,
                                            std::function<bool(const QString& path)> openInstaller)
{
    UpdateEnvironment environment;
    environment.programVersion = programVersion;
    environment.systemVersion = cLibraryVersion();
    environment.downloadFolder =
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
        u"/trovell/update"_s;
    environment.openInstaller = std::move(openInstaller);
    environment.tls = QSslConfiguration::defaultConfiguration();
    return environment;
}

} // namespace trovell
