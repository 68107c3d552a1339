// SPDX-License-Identifier: MIT
//
// One instance per session, and the door through which the desktop opens it. Main thread only.
#pragma once

#include <QObject>
#include <QString>

namespace trovell {

class ActivationSystem : public QObject {
    Q_OBJECT

public:
    /// Asks the instance that runs in this session, if there is one, to show itself. True when
    /// there is: this process has nothing left to do. Passes on the start-up token that this
    /// process was given, so call it before the application object takes it away.
    [[nodiscard]] virtual bool forwardToRunningInstance() = 0;

Q_SIGNALS:
    /// Someone wants to see the program: its entry in a menu or its action "Open Trovell" was
    /// chosen, or it was started again. The token proves that the user did that just now (Startup
    /// Notification id or xdg-activation token); it may be empty. Emitted from the event loop.
    void activationRequested(const QString& startupToken);
};

} // namespace trovell
