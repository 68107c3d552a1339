// SPDX-License-Identifier: MIT

#include "platform/freedesktop/AutostartLoginItem.h"

#include "platform/freedesktop/AutostartEntry.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <glib/gstdio.h>

#include <cerrno>
#include <sys/stat.h>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// In the same words as every other program of the desktop.
Unexpected<QString> failure(const QString& path, int error)
{
    return Unexpected<QString>(u"%1: %2"_s.arg(path, QString::fromUtf8(g_strerror(error))));
}

/// The first of the files that is a desktop entry.
std::optional<AutostartEntry> firstEntry(const QStringList& paths)
{
    for (const QString& path : paths) {
        if (auto entry = AutostartEntry::read(path))
            return entry;
    }
    return std::nullopt;
}

QStringList standardPaths(QStandardPaths::StandardLocation location, const QString& file)
{
    QStringList paths = QStandardPaths::standardLocations(location);
    for (QString& path : paths)
        path += u'/' + file;
    return paths;
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const QString& applicationId)
    : m_fileName(applicationId + u".desktop"_s)
{
}

LoginItemStatus AutostartLoginItem::status() const
{
    if (const auto entry = currentEntry())
        return entry->isEffective() ? LoginItemStatus::enabled : LoginItemStatus::requiresApproval;
    return installedEntry() ? LoginItemStatus::notRegistered : LoginItemStatus::notFound;
}

Expected<void, QString> AutostartLoginItem::registerLoginItem()
{
    const auto current = currentEntry();
    if (current && current->isEffective())
        return {};
    const auto installed = installedEntry();
    if (!installed)
        return failure(m_fileName, ENOENT);
    auto entry = AutostartEntry::read(userPath());
    if (!entry)
        return write(AutostartEntry::starting(*installed));
    entry->makeEffective(*installed);
    return write(*entry);
}

Expected<void, QString> AutostartLoginItem::unregisterLoginItem()
{
    auto entry = AutostartEntry::read(userPath());
    const auto systemEntry = firstEntry(systemPaths());
    const bool isSystemWide = systemEntry && systemEntry->isEffective();
    if (entry && !isSystemWide && isExpendable(*entry))
        return removeUserFile();
    const auto current = currentEntry();
    if (!current || !current->isEffective())
        return {};
    if (!entry)
        entry = AutostartEntry::starting(*systemEntry);
    entry->hide();
    return write(*entry);
}

QString AutostartLoginItem::userPath() const
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/autostart/"_s + m_fileName;
}

QStringList AutostartLoginItem::systemPaths() const
{
    QStringList paths =
        standardPaths(QStandardPaths::GenericConfigLocation, u"autostart/"_s + m_fileName);
    paths.removeAll(userPath());
    return paths;
}

std::optional<AutostartEntry> AutostartLoginItem::currentEntry() const
{
    return firstEntry(QStringList{userPath()} + systemPaths());
}

std::optional<AutostartEntry> AutostartLoginItem::installedEntry() const
{
    auto entry = firstEntry(standardPaths(QStandardPaths::ApplicationsLocation, m_fileName));
    // That is how a user removes what the system has installed.
    if (entry && entry->isHidden())
        entry.reset();
    return entry;
}

bool AutostartLoginItem::isExpendable(const AutostartEntry& userEntry) const
{
    if (QFileInfo(userPath()).isSymLink())
        return true;
    const auto installed = installedEntry();
    return installed && userEntry.bytes() == AutostartEntry::starting(*installed).bytes();
}

Expected<void, QString> AutostartLoginItem::write(const AutostartEntry& entry) const
{
    const QString folder = QFileInfo(userPath()).path();
    if (g_mkdir_with_parents(QFile::encodeName(folder).constData(), S_IRWXU) != 0)
        return failure(folder, errno);
    const QByteArray bytes = entry.bytes();
    GError* error = nullptr;
    // Replaces the file at once; of a link, the link and not what it leads to.
    if (g_file_set_contents_full(QFile::encodeName(userPath()).constData(), bytes.constData(),
                                 bytes.size(), G_FILE_SET_CONTENTS_CONSISTENT,
                                 S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH, &error))
        return {};
    const GPointer<GError, g_error_free> owned(error);
    return Unexpected<QString>(QString::fromUtf8(owned->message));
}

Expected<void, QString> AutostartLoginItem::removeUserFile() const
{
    if (g_unlink(QFile::encodeName(userPath()).constData()) != 0 && errno != ENOENT)
        return failure(userPath(), errno);
    return {};
}

} // namespace trovell
