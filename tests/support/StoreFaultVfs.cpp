#include "support/StoreFaultVfs.h"

#include <QFile>

#include <algorithm>
#include <sqlite3.h>

namespace trovell {

namespace {

constexpr qint64 sectorSize = 512;

void overwrite(QByteArray& content, qint64 offset, const QByteArray& bytes)
{
    if (content.size() < offset + bytes.size())
        content.resize(offset + bytes.size(), '\0');
    content.replace(offset, bytes.size(), bytes);
}

sqlite3_vfs* systemVfs()
{
    return sqlite3_vfs_find(nullptr);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// What SQLite holds for an open file; the system VFS's own part follows it in memory.
struct StoreFaultFile {
    using Fault = StoreFaultVfs::Fault;

    sqlite3_file base;
    StoreFaultVfs* vfs;
    const char* path;

    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    StoreFaultVfs::TrackedFile& tracked() { return vfs->m_files[QFile::decodeName(path)]; }

    static StoreFaultFile* from(sqlite3_file* file)
    {
        return reinterpret_cast<StoreFaultFile*>(file);
    }

    static int close(sqlite3_file* file)
    {
        sqlite3_file* real = from(file)->real();
        return real->pMethods ? real->pMethods->xClose(real) : SQLITE_OK;
    }

    static int read(sqlite3_file* file, void* buffer, int size, sqlite3_int64 offset)
    {
        if (from(file)->vfs->fails(StoreFaultVfs::Operation::read))
            return SQLITE_IOERR_READ;
        sqlite3_file* real = from(file)->real();
        return real->pMethods->xRead(real, buffer, size, offset);
    }

    static int write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset)
    {
        StoreFaultFile* self = from(file);
        const bool isFailing = self->vfs->fails(StoreFaultVfs::Operation::write);
        const Fault fault = self->vfs->m_fault;
        if (isFailing && fault != Fault::tornWrite)
            return fault == Fault::diskFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
        const int written = isFailing ? size / 2 : size;
        sqlite3_file* real = self->real();
        const int code = real->pMethods->xWrite(real, bytes, written, offset);
        if (code == SQLITE_OK)
            self->tracked().later.append(
                {false, offset, QByteArray(static_cast<const char*>(bytes), written)});
        return isFailing ? SQLITE_IOERR_WRITE : code;
    }

    static int truncate(sqlite3_file* file, sqlite3_int64 size)
    {
        StoreFaultFile* self = from(file);
        if (self->vfs->fails(StoreFaultVfs::Operation::other))
            return SQLITE_IOERR_TRUNCATE;
        self->tracked().later.append({true, size, {}});
        return self->real()->pMethods->xTruncate(self->real(), size);
    }

    /// The real power stays on, so the real disk need not be waited for.
    static int sync(sqlite3_file* file, int)
    {
        StoreFaultFile* self = from(file);
        if (self->vfs->fails(StoreFaultVfs::Operation::other))
            return SQLITE_IOERR_FSYNC;
        StoreFaultVfs::TrackedFile& tracked = self->tracked();
        for (const auto& change : std::exchange(tracked.later, {}))
            StoreFaultVfs::apply(tracked.synchronizedContent, change);
        return SQLITE_OK;
    }

    /// What works as ever.
    template <auto operation, class... Arguments>
    static int forward(sqlite3_file* file, Arguments... arguments)
    {
        sqlite3_file* real = from(file)->real();
        return (real->pMethods->*operation)(real, arguments...);
    }

    static int blockSize(sqlite3_file*) { return sectorSize; }

    static const sqlite3_io_methods methods;
};

// Version 1 has neither shared memory nor memory mapping: nothing gets past the operations above.
const sqlite3_io_methods StoreFaultFile::methods{
    .iVersion = 1,
    .xClose = &close,
    .xRead = &read,
    .xWrite = &write,
    .xTruncate = &truncate,
    .xSync = &sync,
    .xFileSize = &forward<&sqlite3_io_methods::xFileSize, sqlite3_int64*>,
    .xLock = &forward<&sqlite3_io_methods::xLock, int>,
    .xUnlock = &forward<&sqlite3_io_methods::xUnlock, int>,
    .xCheckReservedLock = &forward<&sqlite3_io_methods::xCheckReservedLock, int*>,
    .xFileControl = &forward<&sqlite3_io_methods::xFileControl, int, void*>,
    .xSectorSize = &blockSize,
    .xDeviceCharacteristics = &forward<&sqlite3_io_methods::xDeviceCharacteristics>,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

StoreFaultVfs::StoreFaultVfs()
    : m_name("store-fault-" + QByteArray::number(reinterpret_cast<quintptr>(this), 16)),
      m_vfs(std::make_unique<sqlite3_vfs>(*systemVfs()))
{
    m_vfs->pNext = nullptr;
    m_vfs->zName = m_name.constData();
    m_vfs->pAppData = this;
    m_vfs->szOsFile = static_cast<int>(sizeof(StoreFaultFile)) + systemVfs()->szOsFile;
    m_vfs->xOpen = [](sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags,
                      int* outFlags) {
        return static_cast<StoreFaultVfs*>(vfs->pAppData)->open(path, file, flags, outFlags);
    };
    m_vfs->xDelete = [](sqlite3_vfs* vfs, const char* path, int isFolderSynchronized) {
        return static_cast<StoreFaultVfs*>(vfs->pAppData)->remove(path, isFolderSynchronized);
    };
    sqlite3_vfs_register(m_vfs.get(), 0);
}

StoreFaultVfs::~StoreFaultVfs()
{
    sqlite3_vfs_unregister(m_vfs.get());
}

void StoreFaultVfs::arm(Fault fault, int operation, int failureCount)
{
    m_fault = fault;
    m_firstFailure = operation;
    m_failureCount = failureCount;
    m_hasFired = false;
    m_operationCount = 0;
}

QHash<QString, QByteArray> StoreFaultVfs::filesAfterPowerLoss(QRandomGenerator& random) const
{
    QHash<QString, QByteArray> files;
    for (auto file = m_files.begin(); file != m_files.end(); ++file) {
        QByteArray content = file->synchronizedContent;
        for (const Change& change : file->later) {
            const qint64 size = std::max<qint64>(1, change.bytes.size());
            for (qint64 start = 0; start < size; start += sectorSize) {
                const QByteArray sector = change.bytes.mid(start, sectorSize);
                if (random.bounded(2) == 0)
                    apply(content, {change.isTruncation, change.offset + start, sector});
            }
        }
        files.insert(file.key(), content);
    }
    return files;
}

void StoreFaultVfs::apply(QByteArray& content, const Change& change)
{
    if (change.isTruncation)
        content.resize(change.offset, '\0');
    else
        overwrite(content, change.offset, change.bytes);
}

bool StoreFaultVfs::fails(Operation operation)
{
    const bool isConcerned = m_fault == Fault::readFailure ? operation == Operation::read
                             : m_fault == Fault::failure   ? operation != Operation::read
                             : m_fault == Fault::none      ? false
                                                           : operation == Operation::write;
    if (!isConcerned)
        return false;
    m_operationCount += 1;
    const bool isFailing =
        m_operationCount >= m_firstFailure && m_operationCount < m_firstFailure + m_failureCount;
    m_hasFired = m_hasFired || isFailing;
    return isFailing;
}

int StoreFaultVfs::open(const char* path, sqlite3_file* file, int flags, int* outFlags)
{
    StoreFaultFile* opened = StoreFaultFile::from(file);
    opened->vfs = this;
    opened->path = path;
    opened->base.pMethods = nullptr;
    const bool isMain = (flags & SQLITE_OPEN_MAIN_DB) != 0;
    if (fails(Operation::other) || (isFolderReadOnly && !isMain))
        return SQLITE_CANTOPEN;
    if (isReadOnly)
        flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
    const QString name = QFile::decodeName(path);
    if (!m_files.contains(name))
        m_files.insert(name, {readFile(name), {}});
    const int code = systemVfs()->xOpen(systemVfs(), path, opened->real(), flags, outFlags);
    if (code == SQLITE_OK)
        opened->base.pMethods = &StoreFaultFile::methods;
    return code;
}

int StoreFaultVfs::remove(const char* path, int isFolderSynchronized)
{
    if (fails(Operation::other))
        return SQLITE_IOERR_DELETE;
    // Without that, the file may come back.
    if (isFolderSynchronized)
        m_files.remove(QFile::decodeName(path));
    return systemVfs()->xDelete(systemVfs(), path, 0);
}

} // namespace trovell
