// SPDX-License-Identifier: MIT

#include "support/StoreFaultVfs.h"

#include <sqlite3.h>

namespace trovell {

namespace {

sqlite3_vfs* systemVfs()
{
    return sqlite3_vfs_find(nullptr);
}

} // namespace

/// What stands behind the part of an open file that is the system VFS's own: the operations that
/// can fail take the place of some of the system's.
struct StoreFaultFile {
    StoreFaultVfs* vfs;
    const sqlite3_io_methods* system;
    sqlite3_io_methods methods;

    static StoreFaultFile& of(sqlite3_file* file)
    {
        char* bytes = reinterpret_cast<char*>(file);
        return *reinterpret_cast<StoreFaultFile*>(bytes + systemVfs()->szOsFile);
    }

    static int read(sqlite3_file* file, void* buffer, int size, sqlite3_int64 offset)
    {
        const StoreFaultFile& self = of(file);
        return self.vfs->fails(StoreFaultVfs::Operation::read)
                   ? SQLITE_IOERR_READ
                   : self.system->xRead(file, buffer, size, offset);
    }

    static int write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset)
    {
        const StoreFaultFile& self = of(file);
        const bool isFailing = self.vfs->fails(StoreFaultVfs::Operation::write);
        if (isFailing && self.vfs->m_fault != StoreFaultVfs::Fault::tornWrite)
            return self.vfs->m_fault == StoreFaultVfs::Fault::diskFull ? SQLITE_FULL
                                                                       : SQLITE_IOERR_WRITE;
        const int written = isFailing ? size / 2 : size;
        const int code = self.system->xWrite(file, bytes, written, offset);
        self.vfs->m_unsynchronized.insert(file);
        return isFailing ? SQLITE_IOERR_WRITE : code;
    }

    static int truncate(sqlite3_file* file, sqlite3_int64 size)
    {
        const StoreFaultFile& self = of(file);
        if (self.vfs->fails(StoreFaultVfs::Operation::other))
            return SQLITE_IOERR_TRUNCATE;
        self.vfs->m_unsynchronized.insert(file);
        return self.system->xTruncate(file, size);
    }

    /// The real power stays on, so the real disk need not be waited for.
    static int sync(sqlite3_file* file, int)
    {
        const StoreFaultFile& self = of(file);
        if (self.vfs->fails(StoreFaultVfs::Operation::other))
            return SQLITE_IOERR_FSYNC;
        self.vfs->m_unsynchronized.remove(file);
        return SQLITE_OK;
    }

    static int close(sqlite3_file* file)
    {
        const StoreFaultFile& self = of(file);
        self.vfs->m_unsynchronized.remove(file);
        return self.system->xClose(file);
    }
};

StoreFaultVfs::StoreFaultVfs()
    : m_name("store-fault-" + QByteArray::number(reinterpret_cast<quintptr>(this), 16)),
      m_vfs(std::make_unique<sqlite3_vfs>(*systemVfs()))
{
    m_vfs->pNext = nullptr;
    m_vfs->zName = m_name.constData();
    m_vfs->pAppData = this;
    m_vfs->szOsFile = systemVfs()->szOsFile + static_cast<int>(sizeof(StoreFaultFile));
    m_vfs->xOpen = [](sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags,
                      int* outFlags) {
        return static_cast<StoreFaultVfs*>(vfs->pAppData)->open(path, file, flags, outFlags);
    };
    m_vfs->xDelete = [](sqlite3_vfs* vfs, const char* path, int) {
        return static_cast<StoreFaultVfs*>(vfs->pAppData)->fails(Operation::other)
                   ? SQLITE_IOERR_DELETE
                   : systemVfs()->xDelete(systemVfs(), path, 0);
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
    file->pMethods = nullptr;
    const bool isMain = (flags & SQLITE_OPEN_MAIN_DB) != 0;
    if (fails(Operation::other) || (isFolderReadOnly && !isMain))
        return SQLITE_CANTOPEN;
    if (isReadOnly)
        flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
    const int code = systemVfs()->xOpen(systemVfs(), path, file, flags, outFlags);
    if (code != SQLITE_OK)
        return code;
    StoreFaultFile& self = StoreFaultFile::of(file);
    self = {this, file->pMethods, *file->pMethods};
    // Version 1 has neither shared memory nor memory mapping: nothing gets past these.
    self.methods.iVersion = 1;
    self.methods.xRead = &StoreFaultFile::read;
    self.methods.xWrite = &StoreFaultFile::write;
    self.methods.xTruncate = &StoreFaultFile::truncate;
    self.methods.xSync = &StoreFaultFile::sync;
    self.methods.xClose = &StoreFaultFile::close;
    file->pMethods = &self.methods;
    return SQLITE_OK;
}

} // namespace trovell
