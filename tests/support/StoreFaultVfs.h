// SPDX-License-Identifier: MIT
//
// An SQLite VFS over the system's own that breaks on demand: operations fail, the disk fills up,
// folders are read-only. It also knows what a loss of power would take.
#pragma once

#include <QByteArray>
#include <QSet>

#include <memory>

struct sqlite3_file;
struct sqlite3_vfs;

namespace trovell {

class StoreFaultVfs {
public:
    enum class Fault {
        none,
        /// The operation fails and does nothing.
        failure,
        /// A write gets half of its bytes out before it fails.
        tornWrite,
        /// Only writes fail, with the code of a full disk.
        diskFull,
        /// Only reads fail.
        readFailure,
    };

    StoreFaultVfs();
    ~StoreFaultVfs();
    Q_DISABLE_COPY_MOVE(StoreFaultVfs)

    [[nodiscard]] QByteArray name() const { return m_name; }

    static constexpr int forEver = 1'000'000;

    /// From now on as many operations fail, beginning with the one of the given number, counted
    /// from one over all that the fault concerns.
    void arm(Fault fault, int operation, int failureCount);
    void disarm() { arm(Fault::none, 0, 0); }
    [[nodiscard]] bool hasFired() const { return m_hasFired; }

    /// Files open read-only, as on a file system mounted so.
    bool isReadOnly = false;
    /// Nothing new can be created beside an existing file.
    bool isFolderReadOnly = false;

    /// Nothing that was written waits for the disk: a loss of power would take nothing.
    [[nodiscard]] bool isSynchronized() const { return m_unsynchronized.isEmpty(); }

private:
    friend struct StoreFaultFile;

    enum class Operation { read, write, other };
    /// Counts an operation that the fault concerns, and tells whether it fails.
    bool fails(Operation operation);
    int open(const char* path, sqlite3_file* file, int flags, int* outFlags);

    QByteArray m_name;
    std::unique_ptr<sqlite3_vfs> m_vfs;
    Fault m_fault = Fault::none;
    int m_firstFailure = 0;
    int m_failureCount = 0;
    bool m_hasFired = false;
    int m_operationCount = 0;
    QSet<const sqlite3_file*> m_unsynchronized;
};

} // namespace trovell
