// SPDX-License-Identifier: MIT

#include "platform/freedesktop/FilePath.h"

namespace trovell {

std::optional<QByteArray> localPath(const QUrl& url)
{
    const bool isOfThisMachine = url.host().isEmpty() || url.host() == u"localhost";
    QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!url.isLocalFile() || !isOfThisMachine || !path.startsWith('/') || path.contains('\0'))
        return {};
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QUrl fileURL(const QByteArray& path)
{
    return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"));
}

QByteArray parentPath(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash <= 0 ? QByteArrayLiteral("/") : path.left(slash);
}

QByteArray fileName(const QByteArray& path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

QByteArray joinedPath(const QByteArray& folder, const QByteArray& name)
{
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

} // namespace trovell
