// SPDX-License-Identifier: MIT
//
// A private HOME, application folders and, on demand, a session bus for tests that let GIO start
// real programs: only what the test installs is installed. Make it before anything uses GIO, which
// reads the environment once; it stays changed. Main thread.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>

namespace trovell::lab {

/// What a recorder told of its start.
struct RecordedStart {
    QStringList arguments;
    qint64 pid = 0;
    qint64 sessionId = 0;
    /// What its standard input, output and error are.
    QStringList streams;
    QString launchedDesktopFile;
    QString startupId;
    QString folder;
    QString notifySocket;
};

class PrivateSession {
public:
    PrivateSession();
    ~PrivateSession();
    Q_DISABLE_COPY_MOVE(PrivateSession)

    /// Absolute path of something in the private HOME. The user's own desktop files are in
    /// "data/applications", those of the system in "share/applications".
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// Writes a file into the private HOME, with its folders; returns its absolute path.
    QString write(const QString& name, const QByteArray& content) const;

    /// Installs a desktop file of type Application for this user. `lines` follow its name.
    QString addDesktopFile(const QString& id, const QByteArray& lines) const;

    /// A program that writes down how it was started and exits; returns its path.
    QString addRecorder(const QString& name) const;

    /// The last start of a recorder; none while it has not run.
    std::optional<RecordedStart> recorded(const QString& recorder) const;

    /// Makes `id` the default application of a MIME type.
    void setDefault(const QString& mimeType, const QString& id);

    /// False when there is no dbus-daemon.
    [[nodiscard]] bool startBus();

private:
    QTemporaryDir m_folder;
    QByteArray m_defaults;
    QProcess m_bus;
};

} // namespace trovell::lab
