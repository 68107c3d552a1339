// SPDX-License-Identifier: MIT

#include "services/update/PrivateFile.h"

#include "lab/Files.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

mode_t mode(const QString& path)
{
    struct stat status{};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace

class PrivateFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_root = std::make_unique<QTemporaryDir>(); }

    void isPrivateAndGoesAway()
    {
        const mode_t mask = ::umask(0);
        auto file = PrivateFile::create(folder());
        ::umask(mask);
        QVERIFY(file.has_value());
        QCOMPARE(mode((*file)->path()), mode_t(0600));
        QCOMPARE(mode(folder()), mode_t(0700));
        QCOMPARE(mode(path(u"cache/trovell"_s)), mode_t(0700));

        QVERIFY((*file)->append("one ").has_value());
        QVERIFY((*file)->append("two").has_value());
        QVERIFY((*file)->close().has_value());
        QVERIFY((*file)->rename(u"package.deb"_s).has_value());
        QCOMPARE(files(), QStringList{u"package.deb"_s});
        QCOMPARE(lab::readFile((*file)->path()), "one two");
        file->reset();
        QVERIFY(files().isEmpty());
    }

    void leavesNothingOfEarlierDownloads()
    {
        QVERIFY(QDir().mkpath(folder()));
        QVERIFY(::chmod(QFile::encodeName(path(u"cache/trovell"_s)).constData(), 0777) == 0);
        const QString target = lab::writeFile(path(u"kept"_s), "text");
        QVERIFY(QFile::link(target, folder() + u"/link"_s));
        QVERIFY(::chmod(QFile::encodeName(folder()).constData(), 0570) == 0);
        {
            const auto released = PrivateFile::create(folder());
            QVERIFY(released.has_value());
            QCOMPARE(mode(folder()), mode_t(0700));
            QCOMPARE(mode(path(u"cache/trovell"_s)), mode_t(0700));
            (*released)->release();
        }
        QCOMPARE(files().size(), 1);
        QVERIFY(PrivateFile::create(folder()).has_value());
        QVERIFY(files().isEmpty());
        QVERIFY(QFile::exists(target));
    }

    void refusesFoldersOfOthers()
    {
        // Root can give a folder away; everybody else has some that are not their own.
        QVERIFY(QDir().mkpath(folder()));
        const bool isRoot = ::geteuid() == 0;
        if (isRoot)
            QVERIFY(::chown(QFile::encodeName(folder()).constData(), 1, 1) == 0);
        QCOMPARE(error(isRoot ? folder() : u"/usr/bin"_s), UpdateError::folderNotPrivate);
    }

    /// Here to a folder of the user's own, whose files must survive.
    void refusesLinks()
    {
        const QString document = lab::writeFile(path(u"documents/update/letter"_s), "Dear");
        QVERIFY(QDir().mkpath(path(u"cache"_s)));
        QVERIFY(QFile::link(path(u"documents"_s), path(u"cache/trovell"_s)));
        QCOMPARE(error(folder()), UpdateError::folderNotPrivate);
        QVERIFY(QFile::remove(path(u"cache/trovell"_s)));
        QVERIFY(QDir().mkpath(path(u"cache/trovell"_s)));
        QVERIFY(QFile::link(path(u"documents/update"_s), folder()));
        QCOMPARE(error(folder()), UpdateError::folderNotPrivate);
        QVERIFY(QFile::exists(document));
    }

private:
    QString path(const QString& name) const { return m_root->filePath(name); }
    QString folder() const { return path(u"cache/trovell/update"_s); }
    QStringList files() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden); }
    /// Why no file can be made in the folder.
    static std::optional<UpdateError> error(const QString& folder)
    {
        const auto file = PrivateFile::create(folder);
        return file ? std::nullopt : std::optional(file.error());
    }

    std::unique_ptr<QTemporaryDir> m_root;
};

QTEST_GUILESS_MAIN(PrivateFileTest)
#include "PrivateFileTest.moc"
