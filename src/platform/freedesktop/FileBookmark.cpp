// SPDX-License-Identifier: MIT

#include "platform/freedesktop/FileBookmark.h"

#include "platform/freedesktop/FilePath.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QIODevice>

namespace trovell {

namespace {

constexpr quint32 formatMark = 0x54766246; // "TvbF"
constexpr quint8 formatVersion = 1;

struct Bookmark {
    QByteArray path;
    FileIdentity identity;
};

QByteArray encoded(const Bookmark& bookmark)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    const FileIdentity& identity = bookmark.identity;
    stream << formatMark << formatVersion << static_cast<quint8>(identity.kind) << identity.device
           << identity.inode << identity.birth << bookmark.path;
    return bytes;
}

std::optional<Bookmark> decoded(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_0);
    quint32 mark = 0;
    quint8 version = 0;
    quint8 kind = 0;
    Bookmark bookmark;
    FileIdentity& identity = bookmark.identity;
    stream >> mark >> version >> kind;
    if (mark != formatMark || version != formatVersion ||
        kind > static_cast<quint8>(FileIdentity::Kind::folder))
        return {};
    stream >> identity.device >> identity.inode >> identity.birth >> bookmark.path;
    identity.kind = static_cast<FileIdentity::Kind>(kind);
    const bool isPath = bookmark.path.startsWith('/') && !bookmark.path.contains('\0');
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || !isPath)
        return {};
    return bookmark;
}

} // namespace

std::optional<QByteArray> createFileBookmark(const QUrl& url)
{
    const auto path = localPath(url);
    const auto identity = path ? fileIdentity(*path) : std::nullopt;
    if (!identity)
        return {};
    return encoded({*path, *identity});
}

FileSearchScope standardSearchScope()
{
    FileSearchScope scope;
    scope.home = QFile::encodeName(QDir::homePath());
    return scope;
}

std::optional<ResolvedBookmark> resolveFileBookmark(const QByteArray& bytes,
                                                    const FileSearchScope& scope)
{
    const auto bookmark = decoded(bytes);
    if (!bookmark)
        return {};
    const auto current = fileIdentity(bookmark->path);
    // A file at the old path wins even where the old one lives on under another name. Most often
    // that name is a backup which an editor made while saving; and someone who put a new file in
    // the place of the old one sees the path, not the file's history, in the workspace.
    if (current && current->kind == bookmark->identity.kind)
        return ResolvedBookmark{fileURL(bookmark->path), *current != bookmark->identity};
    if (const auto path = findMovedFile(bookmark->path, bookmark->identity, scope))
        return ResolvedBookmark{fileURL(*path), true};
    return {};
}

} // namespace trovell
