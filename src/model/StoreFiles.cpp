// SPDX-License-Identifier: MIT

#include "model/StoreFiles.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t privateFolder = 0700;
constexpr mode_t privateFile = 0600;
constexpr std::string_view markerText =
    "The workspace store beside this file has been created. If it is empty, it has been damaged.\n";

Unexpected<StoreError> systemError(int code)
{
    switch (code) {
    case ENOSPC:
    case EDQUOT:
        return Unexpected<StoreError>(StoreError::diskFull);
    case EROFS:
        return Unexpected<StoreError>(StoreError::readOnly);
    default:
        return Unexpected<StoreError>(StoreError::inaccessible);
    }
}

/// Parents first. The XDG Base Directory Specification asks for mode 0700.
Expected<void, StoreError> makeFolder(const QString& folder)
{
    const QFileInfo information(folder);
    if (information.isDir())
        return {};
    if (const auto parent = makeFolder(information.absolutePath()); !parent)
        return parent;
    const QByteArray path = QFile::encodeName(information.absoluteFilePath());
    // The umask may take more away than mkdir is asked for.
    if (::mkdir(path.constData(), privateFolder) != 0 ||
        ::chmod(path.constData(), privateFolder) != 0)
        return systemError(errno);
    return {};
}

/// The system's error, or 0 when the file is on the disk.
int createFile(const QString& path, std::string_view content)
{
    const int file = ::open(QFile::encodeName(path).constData(),
                            O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, privateFile);
    if (file < 0)
        return errno;
    const auto size = static_cast<ssize_t>(content.size());
    const bool isWritten = ::fchmod(file, privateFile) == 0 &&
                           ::write(file, content.data(), content.size()) == size &&
                           ::fsync(file) == 0;
    const int error = isWritten ? 0 : errno;
    ::close(file);
    return error;
}

/// A file or a folder. The system's error, or 0 when the disk holds it.
int synchronize(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error;
}

} // namespace

StoreFiles::StoreFiles(const QString& folder) : m_folder(folder) {}

QString StoreFiles::storePath() const
{
    return m_folder + u"/workspaces.store"_s;
}

QString StoreFiles::markerPath() const
{
    return m_folder + u"/workspaces.created"_s;
}

Expected<void, StoreError> StoreFiles::prepare() const
{
    if (const auto folder = makeFolder(m_folder); !folder)
        return folder;
    // Only ever looked at, never opened: closing any descriptor of the file would drop the locks
    // that this process holds on it (POSIX advisory locks, fcntl(2)).
    struct stat status{};
    const QByteArray path = QFile::encodeName(storePath());
    if (::stat(path.constData(), &status) != 0)
        return errno == ENOENT ? createStoreFile() : systemError(errno);
    if (!S_ISREG(status.st_mode))
        return Unexpected<StoreError>(StoreError::inaccessible);
    if (status.st_size > 1)
        return {};
    // SQLite takes a file of one byte for an empty one, too.
    if (status.st_size == 1 || QFile::exists(markerPath()))
        return Unexpected<StoreError>(StoreError::damaged);
    // It is about to become a store.
    return ::chmod(path.constData(), privateFile) == 0 ? Expected<void, StoreError>()
                                                       : systemError(errno);
}

Expected<void, StoreError> StoreFiles::createStoreFile() const
{
    // A marker without a store is what is left of one the user took away. If it stayed, a crash
    // in the middle of creating the new one would look like damage.
    if (QFile::exists(markerPath()) && !QFile::remove(markerPath()))
        return Unexpected<StoreError>(StoreError::readOnly);
    synchronize(m_folder);
    if (const int error = createFile(storePath(), {}))
        return systemError(error);
    return {};
}

QString StoreFiles::copyPath() const
{
    return m_folder + u"/workspaces.before-migration"_s;
}

Expected<void, StoreError> StoreFiles::prepareCopy() const
{
    removeCopy();
    if (const int error = createFile(copyPath(), {}))
        return systemError(error);
    return {};
}

Expected<void, StoreError> StoreFiles::synchronizeCopy() const
{
    for (const QString& path : {copyPath(), m_folder}) {
        if (const int error = synchronize(path))
            return systemError(error);
    }
    return {};
}

void StoreFiles::removeCopy() const
{
    QFile::remove(copyPath());
}

void StoreFiles::markAsCreated() const
{
    if (QFile::exists(markerPath()))
        return;
    createFile(markerPath(), markerText);
    synchronize(m_folder);
}

} // namespace trovell
