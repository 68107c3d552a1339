// SPDX-License-Identifier: MIT
//
// One instance per session, and the door through which the desktop opens it: the program owns its
// id as a name on the session bus and answers org.freedesktop.Application there (Desktop Entry
// Specification, D-Bus Activation). Main thread only.
//
//     int main(…)
//     {
//         DesktopActivation activation("app.trovell.Trovell");
//         if (activation.forwardToRunningInstance())
//             return 0;
//         QApplication application(…);
//
// Without a session bus, or when the bus ends, the instance simply cannot be reached; a second one
// then starts too, and it is the store's lock that keeps it from the data.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

struct _GApplication;

namespace trovell {

class DesktopActivation final : public QObject {
    Q_OBJECT

public:
    /// Asks for the name at once; a bus or an instance that hangs can hold that up for 25 seconds.
    /// Needs no application object. Requests that arrive before there is an event loop wait for it.
    explicit DesktopActivation(const QByteArray& applicationId);
    /// Gives the name back.
    ~DesktopActivation() override;

    /// Asks the instance that runs in this session, if there is one, to show itself. True when
    /// there is: this process has nothing left to do. Passes on the start-up token that this
    /// process was given, so call it before the application object takes it away.
    [[nodiscard]] bool forwardToRunningInstance();

Q_SIGNALS:
    /// Someone wants to see the program: its entry in a menu or its action "Open Trovell" was
    /// chosen, or it was started again. The token proves that the user did that just now (Startup
    /// Notification id or xdg-activation token); it may be empty. Emitted from the event loop.
    void activationRequested(const QString& startupToken);

private:
    _GApplication* m_application;
    bool m_isPrimary = true;
};

} // namespace trovell
