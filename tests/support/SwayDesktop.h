// SPDX-License-Identifier: MIT
//
// A private sway without a screen for tests: two outputs of 1280×720, HEADLESS-1 and HEADLESS-2
// right of it, an own runtime folder and HOME. Nothing of the user's session is touched, and
// nothing outlives the object. Main thread. One that does not start is a test failure.
#pragma once

#include "platform/sway/SwayConnection.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace trovell::test {

class SwayDesktop {
public:
    /// `configuration` is added to the one that makes the desktop private. Returns when windows can
    /// be opened, or when it did not start.
    explicit SwayDesktop(const QByteArray& configuration = {});
    ~SwayDesktop();
    Q_DISABLE_COPY_MOVE(SwayDesktop)

    [[nodiscard]] bool isReady() const { return m_connection && m_connection->isAlive(); }
    /// What sway said.
    [[nodiscard]] QByteArray log() const;
    [[nodiscard]] QByteArray socketPath() const;
    [[nodiscard]] QString runtimeFolder() const { return m_folder.filePath(QStringLiteral("run")); }
    [[nodiscard]] const QProcessEnvironment& environment() const { return m_environment; }

    /// Starts a program on this desktop, which owns the process.
    QProcess& start(const QString& program, const QStringList& arguments = {});
    /// Opens a window of a real terminal and waits for it. The title is also its application's id.
    QProcess& openWindow(const QString& title);
    /// Runs a tool to its end; whether it succeeded.
    bool run(const QString& program, const QStringList& arguments);
    /// What a person does by keys of the configuration.
    bool command(const QByteArray& text) { return m_connection->run({text}); }

    /// Ends it at once, as a crash does.
    void kill();

private:
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    std::vector<std::unique_ptr<QProcess>> m_processes;
    std::unique_ptr<SwayConnection> m_connection;
};

} // namespace trovell::test
