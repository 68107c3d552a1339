// SPDX-License-Identifier: MIT

#include "platform/freedesktop/FileSearch.h"

#include "platform/freedesktop/FilePath.h"

#include <QHash>

#include <deque>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace trovell {

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

/// A folder to be read, with that many levels of entries.
struct Folder {
    QByteArray path;
    int levels = 0;
};

/// The folders above `path` that are searched. Those above the home folder and the root belong to
/// everybody.
std::vector<Folder> foldersAbove(const QByteArray& path, const QByteArray& home)
{
    std::vector<Folder> folders;
    QByteArray folder = parentPath(path);
    do {
        // One level of entries for every lost folder, and the folders beside it.
        folders.push_back({folder, static_cast<int>(folders.size()) + 2});
        if (folder == home)
            break;
        folder = parentPath(folder);
    } while (folder != "/");
    return folders;
}

class FileSearch {
public:
    FileSearch(QByteArray name, const FileIdentity& wanted, const FileSearchScope& scope)
        : m_name(std::move(name)), m_wanted(wanted), m_entriesPerFolder(scope.entriesPerFolder),
          m_deadline(std::chrono::steady_clock::now() + scope.time)
    {
    }

    /// Breadth first, because things are seldom moved far.
    std::optional<QByteArray> searchTree(const Folder& root, int entriesOfRoot)
    {
        m_queue.assign(1, root);
        for (int entries = entriesOfRoot; !m_queue.empty() && !isOver();
             entries = m_entriesPerFolder) {
            const Folder folder = std::move(m_queue.front());
            m_queue.pop_front();
            const Directory directory = open(folder, folder.path == root.path);
            if (const auto found =
                    directory ? read(folder, directory.get(), entries) : std::nullopt)
                return found;
        }
        return {};
    }

private:
    [[nodiscard]] bool isOver() const { return std::chrono::steady_clock::now() >= m_deadline; }

    /// None when the folder cannot be read, was read already or lies on another file system.
    Directory open(const Folder& folder, bool isRoot)
    {
        struct statx status = {};
        // Without these flags asking could mount a network drive, or wait for one.
        const int flags = AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC | (isRoot ? 0 : AT_SYMLINK_NOFOLLOW);
        if (statx(AT_FDCWD, folder.path.constData(), flags, STATX_TYPE | STATX_INO, &status) != 0 ||
            !S_ISDIR(status.stx_mode))
            return {};
        const auto device = std::pair(status.stx_dev_major, status.stx_dev_minor);
        if (m_device.value_or(device) != device)
            return {};
        m_device = device;
        int& readLevels = m_readLevels[status.stx_ino];
        if (readLevels >= folder.levels)
            return {};
        readLevels = folder.levels;
        return Directory(opendir(folder.path.constData()));
    }

    std::optional<QByteArray> read(const Folder& folder, DIR* directory, int entries)
    {
        for (int count = 0; count < entries; ++count) {
            const dirent* entry = readdir(directory);
            constexpr int entriesPerLookAtTheClock = 1024;
            if (!entry || (count % entriesPerLookAtTheClock == 0 && isOver()))
                break;
            if (entry->d_ino == m_wanted.inode && isWanted(dirfd(directory), entry->d_name))
                return joinedPath(folder.path, entry->d_name);
            const bool mayBeFolder = entry->d_type == DT_DIR || entry->d_type == DT_UNKNOWN;
            if (mayBeFolder && folder.levels > 1 && entry->d_name[0] != '.')
                m_queue.push_back({joinedPath(folder.path, entry->d_name), folder.levels - 1});
        }
        return {};
    }

    [[nodiscard]] bool isWanted(int directory, const char* name) const
    {
        const auto identity = fileIdentity(directory, name);
        if (!identity || identity->inode != m_wanted.inode || identity->kind != m_wanted.kind ||
            identity->birth != m_wanted.birth)
            return false;
        // The inode of a deleted file is soon given to a new one. Where no birth time tells them
        // apart only a file that was moved but not renamed is believed.
        return m_wanted.birth != 0 || (identity->device == m_wanted.device && m_name == name);
    }

    QByteArray m_name;
    FileIdentity m_wanted;
    int m_entriesPerFolder;
    std::chrono::steady_clock::time_point m_deadline;
    /// The file system of the first folder that still exists.
    std::optional<std::pair<quint32, quint32>> m_device;
    std::deque<Folder> m_queue;
    /// By inode of a folder: how many levels of entries were read.
    QHash<quint64, int> m_readLevels;
};

} // namespace

std::optional<QByteArray> findMovedFile(const QByteArray& lostPath, const FileIdentity& identity,
                                        const FileSearchScope& scope)
{
    FileSearch search(fileName(lostPath), identity, scope);
    std::vector<Folder> roots = foldersAbove(lostPath, scope.home);
    if (!scope.home.isEmpty())
        roots.push_back({scope.home, scope.homeDepth});
    int entries = std::numeric_limits<int>::max();
    for (const Folder& root : roots) {
        if (auto found = search.searchTree(root, entries))
            return found;
        entries = scope.entriesPerFolder;
    }
    return {};
}

} // namespace trovell
