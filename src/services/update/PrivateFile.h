// SPDX-License-Identifier: MIT
//
// A download that only the user can read, in a folder that only the user can enter. The file goes
// with this object. Any thread, one at a time.
#pragma once

#include "services/update/UpdateError.h"
#include "support/Expected.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace trovell {

class PrivateFile {
public:
    /// Makes a new, empty file with mode 0600 in `folder`, which belongs to this class: what
    /// earlier downloads left there is deleted. The folder and the one that holds it are created
    /// where they are missing, and both get mode 0700. Fails with `folderNotPrivate` when one of
    /// them is a link or belongs to someone else; with `folderNotWritable` or `diskFull`.
    [[nodiscard]] static Expected<std::unique_ptr<PrivateFile>, UpdateError>
    create(const QString& folder);

    ~PrivateFile();
    PrivateFile(const PrivateFile&) = delete;
    PrivateFile& operator=(const PrivateFile&) = delete;

    /// Absolute.
    [[nodiscard]] const QString& path() const { return m_path; }

    /// Fails with `diskFull` or `fileNotWritable`.
    [[nodiscard]] Expected<void, UpdateError> append(const QByteArray& bytes);
    /// Nothing can be appended afterwards. Fails like `append`: some file systems notice only now
    /// that they are full.
    [[nodiscard]] Expected<void, UpdateError> close();
    /// `name` has no slash.
    [[nodiscard]] Expected<void, UpdateError> rename(const QString& name);
    /// The file stays when this object goes, until the next one is made in its folder.
    void release() { m_isReleased = true; }

private:
    PrivateFile(const QString& path, int descriptor) : m_path(path), m_descriptor(descriptor) {}

    QString m_path;
    int m_descriptor;
    bool m_isReleased = false;
};

} // namespace trovell
