// SPDX-License-Identifier: MIT

#include "services/update/PrivateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t privateMode = 0700;

Unexpected<UpdateError> systemError(int code, UpdateError otherwise)
{
    const bool isFull = code == ENOSPC || code == EDQUOT || code == EFBIG;
    return Unexpected<UpdateError>(isFull ? UpdateError::diskFull : otherwise);
}

/// Afterwards nobody else can put anything in place of what lies in the folder. Links are refused
/// because the files in the folder are going to be deleted.
Expected<void, UpdateError> makeOwnFolder(const QString& folder)
{
    const QByteArray path = QFile::encodeName(folder);
    if (::mkdir(path.constData(), privateMode) != 0 && errno != EEXIST)
        return systemError(errno, UpdateError::folderNotWritable);
    struct stat status{};
    if (::lstat(path.constData(), &status) != 0)
        return systemError(errno, UpdateError::folderNotWritable);
    if (!S_ISDIR(status.st_mode) || status.st_uid != ::geteuid())
        return Unexpected<UpdateError>(UpdateError::folderNotPrivate);
    // It may be an old one, and the umask may have taken too much away from a new one.
    if (::chmod(path.constData(), privateMode) != 0)
        return systemError(errno, UpdateError::folderNotWritable);
    return {};
}

/// The outer folder first: once it is private, nobody can exchange the inner one.
Expected<void, UpdateError> makePrivateFolder(const QString& folder)
{
    const QFileInfo parent(QFileInfo(folder).absolutePath());
    if (!QDir().mkpath(parent.absolutePath()))
        return Unexpected<UpdateError>(UpdateError::folderNotWritable);
    if (const auto made = makeOwnFolder(parent.absoluteFilePath()); !made)
        return made;
    return makeOwnFolder(folder);
}

void deleteFiles(const QString& folder)
{
    const QFileInfoList files =
        QDir(folder).entryInfoList(QDir::Files | QDir::System | QDir::Hidden);
    for (const QFileInfo& file : files)
        QFile::remove(file.absoluteFilePath());
}

} // namespace

Expected<std::unique_ptr<PrivateFile>, UpdateError> PrivateFile::create(const QString& folder)
{
    if (const auto made = makePrivateFolder(folder); !made)
        return Unexpected<UpdateError>(made.error());
    deleteFiles(folder);
    QByteArray path = QFile::encodeName(QDir(folder).absoluteFilePath(u"download-XXXXXX"_s));
    const int descriptor = ::mkostemp(path.data(), O_CLOEXEC);
    if (descriptor < 0)
        return systemError(errno, UpdateError::folderNotWritable);
    return std::unique_ptr<PrivateFile>(new PrivateFile(QFile::decodeName(path), descriptor));
}

PrivateFile::~PrivateFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    if (!m_isReleased)
        QFile::remove(m_path);
}

Expected<void, UpdateError> PrivateFile::append(const QByteArray& bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count = ::write(m_descriptor, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            return systemError(errno, UpdateError::fileNotWritable);
        written += std::max<ssize_t>(count, 0);
    }
    return {};
}

Expected<void, UpdateError> PrivateFile::close()
{
    // Closed even when it fails (close(2)).
    if (::close(std::exchange(m_descriptor, -1)) != 0)
        return systemError(errno, UpdateError::fileNotWritable);
    return {};
}

Expected<void, UpdateError> PrivateFile::rename(const QString& name)
{
    const QString path = QFileInfo(m_path).dir().absoluteFilePath(name);
    if (::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(path).constData()) != 0)
        return systemError(errno, UpdateError::fileNotWritable);
    m_path = path;
    return {};
}

} // namespace trovell
