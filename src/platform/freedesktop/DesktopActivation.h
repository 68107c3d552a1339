// SPDX-License-Identifier: MIT
//
// One instance per session, and the door through which the desktop opens it: the program owns its
// id as a name on the session bus and answers org.freedesktop.Application there (Desktop Entry
// Specification, D-Bus Activation). Main thread only.
// Without a session bus, or when the bus ends, the instance simply cannot be reached; a second one
// then starts too, and it is the store's lock that keeps it from the data.
#pragma once

#include "services/ActivationSystem.h"

#include <QByteArray>

struct _GApplication;

namespace trovell {

class DesktopActivation final : public ActivationSystem {
public:
    /// Asks for the name at once; a bus or an instance that hangs can hold that up for 25 seconds.
    /// Needs no application object. Requests that arrive before there is an event loop wait for it.
    explicit DesktopActivation(const QByteArray& applicationId);
    /// Gives the name back.
    ~DesktopActivation() override;

    [[nodiscard]] bool forwardToRunningInstance() override;

private:
    _GApplication* m_application;
    bool m_isPrimary = true;
};

} // namespace trovell
