// SPDX-License-Identifier: MIT

#include "platform/freedesktop/FileBookmark.h"

#include "platform/freedesktop/FilePath.h"

#include <QtTest>

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace trovell;
namespace fs = std::filesystem;

namespace {

const QString none = u"none"_s;

QString fresh(const QUrl& url)
{
    return u"fresh "_s + url.toString(QUrl::FullyEncoded);
}

QString stale(const QUrl& url)
{
    return u"stale "_s + url.toString(QUrl::FullyEncoded);
}

/// A private home folder and a place beside it; names are bytes.
class Disk {
public:
    Disk()
    {
        std::string name = (fs::temp_directory_path() / "FileBookmarkTest-XXXXXX").string();
        m_root = mkdtemp(name.data());
        fs::create_directories(m_root / "home");
        scope.home = (m_root / "home").c_str();
        // Plenty, also on a machine that is busy with other tests.
        scope.time = std::chrono::minutes(1);
    }
    ~Disk() { fs::remove_all(m_root); }
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    fs::path operator/(const std::string& name) const { return m_root / name; }
    QUrl url(const std::string& name) const { return fileURL((m_root / name).c_str()); }

    void write(const std::string& name, const char* text = "text") const
    {
        fs::create_directories((m_root / name).parent_path());
        std::ofstream(m_root / name) << text;
    }
    void move(const std::string& from, const std::string& to) const
    {
        fs::create_directories((m_root / to).parent_path());
        fs::rename(m_root / from, m_root / to);
    }

    QByteArray bookmark(const std::string& name) const
    {
        return createFileBookmark(url(name)).value_or(QByteArray());
    }
    /// "fresh" or "stale" and the address, or "none".
    QString resolve(const QByteArray& bookmark) const
    {
        const auto resolved = resolveFileBookmark(bookmark, scope);
        if (!resolved)
            return none;
        return resolved->isStale ? stale(resolved->url) : fresh(resolved->url);
    }

    FileSearchScope scope;

private:
    fs::path m_root;
};

const std::string report = "home/Documents/a/report.odt";

} // namespace

class FileBookmarkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsWhatWasMoved()
    {
        const auto verify = [](const std::string& from, const std::string& to,
                               const std::string& found) {
            Disk disk;
            disk.write("home/Documents/other.odt");
            disk.write(report);
            // Links are not followed.
            fs::create_symlink("..", disk / "home/Documents/a/loop");
            fs::create_symlink(disk / "elsewhere", disk / "home/elsewhere");
            const QByteArray bookmark = disk.bookmark(report);
            disk.move(from, to);
            QCOMPARE(disk.resolve(bookmark), found.empty() ? none : stale(disk.url(found)));
        };
        for (const char* to : {"home/Documents/a/final.odt", "home/Documents/a/archive/report.odt",
                               "home/Documents/b/report.odt", "home/Documents/report.odt",
                               "home/1/2/3/4/5/report.odt"})
            verify(report, to, to);
        verify("home/Documents/a", "home/Documents/c", "home/Documents/c/report.odt");
        verify("home/Documents", "home/Papers", "home/Papers/a/report.odt");
        // Too deep, thrown away, outside the home.
        for (const char* to : {"home/1/2/3/4/5/6/report.odt",
                               "home/.local/share/Trash/files/report.odt", "elsewhere/report.odt"})
            verify(report, to, {});
    }

    void findsBesideAPathOutsideTheHome()
    {
        Disk disk;
        fs::create_directories(disk / "data/work/project");
        const QByteArray folder = disk.bookmark("data/work/project");
        disk.move("data/work/project", "data/archive/project");
        QCOMPARE(disk.resolve(folder), stale(disk.url("data/archive/project")));

        disk.move("data/archive/project", "home/project");
        QCOMPARE(disk.resolve(folder), stale(disk.url("home/project")));
    }

    void givesThePathToItsNewFile()
    {
        Disk disk;
        disk.write(report);
        const QByteArray bookmark = disk.bookmark(report);
        const QByteArray folder = disk.bookmark("home/Documents/a/");
        // Written in place, given other rights: still the same file.
        disk.write(report, "more text");
        fs::permissions(disk / report, fs::perms::owner_read);
        QCOMPARE(disk.resolve(bookmark), fresh(disk.url(report)));

        disk.write("home/Documents/a/.report.tmp");
        disk.move("home/Documents/a/.report.tmp", report);
        QCOMPARE(disk.resolve(bookmark), stale(disk.url(report)));
        const QByteArray refreshed = disk.bookmark(report);
        QCOMPARE(disk.resolve(refreshed), fresh(disk.url(report)));

        // Saving with a backup: the old file lives on beside the new one.
        disk.move(report, report + "~");
        QCOMPARE(disk.resolve(refreshed), stale(disk.url(report + "~")));
        disk.write(report);
        QCOMPARE(disk.resolve(refreshed), stale(disk.url(report)));
        QCOMPARE(disk.resolve(folder), fresh(disk.url("home/Documents/a")));
    }

    void doesNotMistakeReusedInodes()
    {
        Disk disk;
        disk.write("home/Documents/a/new.odt");
        const std::string present = (disk / "home/Documents/a/new.odt").string();
        const QByteArray lost = (disk / report).c_str();
        auto identity = fileIdentity(QByteArray::fromStdString(present));
        QVERIFY(identity);
        QCOMPARE(findMovedFile(lost, *identity, disk.scope), QByteArray::fromStdString(present));

        // Device numbers change from boot to boot.
        identity->device += 1;
        QCOMPARE(findMovedFile(lost, *identity, disk.scope), QByteArray::fromStdString(present));
        // A deleted file that had the same inode number.
        identity->birth += 1;
        QCOMPARE(findMovedFile(lost, *identity, disk.scope), std::nullopt);
        identity->birth = 0;
        QCOMPARE(findMovedFile(lost, *identity, disk.scope), std::nullopt);
    }

    void keepsToItsLimits()
    {
        Disk disk;
        disk.write(report);
        for (int number = 0; number < 50; ++number)
            disk.write("home/Documents/a/" + std::to_string(number));
        const QByteArray bookmark = disk.bookmark(report);

        // The folder where it was is read to its end, however many entries are allowed elsewhere.
        disk.scope.entriesPerFolder = 0;
        disk.move(report, "home/Documents/a/final.odt");
        QCOMPARE(disk.resolve(bookmark), stale(disk.url("home/Documents/a/final.odt")));
        disk.move("home/Documents/a/final.odt", "home/Documents/final.odt");
        QCOMPARE(disk.resolve(bookmark), none);
        disk.scope.entriesPerFolder = 1000;
        QCOMPARE(disk.resolve(bookmark), stale(disk.url("home/Documents/final.odt")));
        disk.scope.time = std::chrono::milliseconds(0);
        QCOMPARE(disk.resolve(bookmark), none);
    }

    void keepsNamesThatAreNoText()
    {
        Disk disk;
        const std::string name = "home/caf\xe9 100%#?\n";
        disk.write(name);
        const QByteArray bookmark = disk.bookmark(name);
        QCOMPARE(disk.resolve(bookmark), fresh(disk.url(name)));
        QCOMPARE(localPath(disk.url(name)), QByteArray((disk / name).c_str()));

        const std::string renamed = "home/\xff\xfe%41";
        disk.move(name, renamed);
        QCOMPARE(disk.resolve(bookmark), stale(disk.url(renamed)));
    }

    void survivesHostileInput()
    {
        for (const char* url :
             {"file:///nothing/there", "https://wiki.local/tmp", "file://server/tmp",
              "file:///dev/null", "file:tmp", "file:///tmp/%00", ""})
            QVERIFY2(!createFileBookmark(QUrl::fromEncoded(url)), url);

        Disk disk;
        disk.write(report);
        const QByteArray bookmark = disk.bookmark(report);
        for (qsizetype length = 0; length < bookmark.size(); ++length)
            QCOMPARE(disk.resolve(bookmark.left(length)), none);
        QCOMPARE(disk.resolve(bookmark + '\0'), none);

        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        disk.scope.time = std::chrono::milliseconds(1);
        for (int round = 0; round < 2000; ++round) {
            QByteArray bytes = bookmark;
            for (quint32 changes = random.bounded(1U, 4U); changes > 0; --changes)
                bytes[random.bounded(int(bytes.size()))] = static_cast<char>(random.bounded(256));
            const auto resolved = resolveFileBookmark(bytes, disk.scope);
            QVERIFY(!resolved || fs::exists(localPath(resolved->url).value_or("").toStdString()));
        }
    }
};

QTEST_GUILESS_MAIN(FileBookmarkTest)
#include "FileBookmarkTest.moc"
