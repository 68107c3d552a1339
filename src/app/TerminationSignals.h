// SPDX-License-Identifier: MIT
//
// Lets the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) end the event loop in an
// orderly way, so that everything unsaved is saved. One per process; main thread.
#pragma once

#include <QSocketNotifier>

namespace trovell {

class TerminationSignals {
public:
    /// Needs the application object. From now on the signals quit it.
    TerminationSignals();
    /// The signals end the process again as they do by default.
    ~TerminationSignals();
    Q_DISABLE_COPY_MOVE(TerminationSignals)

private:
    QSocketNotifier m_notifier;
};

} // namespace trovell
