// SPDX-License-Identifier: MIT

#include "platform/freedesktop/FileIdentity.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace trovell {

namespace {

std::optional<struct statx> status(int folder, const char* name, int flags)
{
    struct statx result = {};
    if (statx(folder, name, flags, STATX_TYPE | STATX_INO | STATX_BTIME, &result) != 0)
        return {};
    return result;
}

std::optional<FileIdentity::Kind> kind(mode_t mode)
{
    if (S_ISREG(mode))
        return FileIdentity::Kind::file;
    if (S_ISDIR(mode))
        return FileIdentity::Kind::folder;
    return {};
}

quint64 nanoseconds(const struct statx_timestamp& time)
{
    return static_cast<quint64>(time.tv_sec) * 1'000'000'000U + time.tv_nsec;
}

} // namespace

std::optional<FileIdentity> fileIdentity(const QByteArray& path)
{
    return fileIdentity(AT_FDCWD, path.constData());
}

std::optional<FileIdentity> fileIdentity(int folder, const char* name)
{
    const auto own = status(folder, name, AT_SYMLINK_NOFOLLOW);
    const auto target = own && S_ISLNK(own->stx_mode) ? status(folder, name, 0) : own;
    const auto targetKind = target ? kind(target->stx_mode) : std::nullopt;
    if (!targetKind)
        return {};
    FileIdentity identity;
    identity.device = (static_cast<quint64>(own->stx_dev_major) << 32) | own->stx_dev_minor;
    identity.inode = own->stx_ino;
    identity.birth = (own->stx_mask & STATX_BTIME) != 0 ? nanoseconds(own->stx_btime) : 0;
    identity.kind = *targetKind;
    return identity;
}

} // namespace trovell
