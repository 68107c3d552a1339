// SPDX-License-Identifier: MIT

#include "support/FakeResourceSystem.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

const QByteArray bookmarkPrefix = QByteArrayLiteral("bookmark of ");

template <class Key, class Value>
std::optional<Value> found(const QHash<Key, Value>& values, const Key& key)
{
    const auto value = values.constFind(key);
    return value == values.cend() ? std::nullopt : std::optional(*value);
}

} // namespace

void FakeResourceSystem::addApplication(const ApplicationDescription& description, const QUrl& url)
{
    addApplication(description.bundleIdentifier, url);
    m_descriptions.insert(url, description);
}

std::optional<QByteArray> FakeResourceSystem::createBookmark(const QUrl& url) const
{
    if (m_unmarkable.contains(url))
        return {};
    return bookmarkPrefix + url.toEncoded();
}

std::optional<ResolvedBookmark>
FakeResourceSystem::resolveBookmark(const QByteArray& bookmark) const
{
    if (const auto bookmarked = found(m_bookmarks, bookmark))
        return bookmarked;
    if (!bookmark.startsWith(bookmarkPrefix))
        return {};
    return ResolvedBookmark{QUrl::fromEncoded(bookmark.mid(bookmarkPrefix.size())), false};
}

std::optional<QUrl> FakeResourceSystem::applicationURL(const QString& bundleIdentifier) const
{
    return found(m_applications, bundleIdentifier);
}

std::optional<ApplicationDescription> FakeResourceSystem::describeApplication(const QUrl& url) const
{
    if (const auto description = found(m_descriptions, url))
        return description;
    const QString suffix = u".desktop"_s;
    if (!url.fileName().endsWith(suffix))
        return {};
    const QString id = url.fileName().chopped(suffix.size());
    return ApplicationDescription{id, id, u"folder"_s};
}

QList<InstalledApplication> FakeResourceSystem::installedApplications() const
{
    QList<InstalledApplication> installed;
    for (const QUrl& url : m_applications) {
        if (const auto application = describeApplication(url))
            installed.append({url, *application});
    }
    return installed;
}

bool FakeResourceSystem::open(const QUrl& url, QList<QUrl>& kind)
{
    onOpen();
    if (m_refused.contains(url))
        return false;
    kind.append(url);
    m_opened.append(url);
    return true;
}

} // namespace trovell
