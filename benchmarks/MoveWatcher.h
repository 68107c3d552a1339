// SPDX-License-Identifier: MIT
//
// Tells when windows stand still after they were moved. It only listens while others work, and
// takes the events when it is asked, so that it costs those who are measured nothing.
#pragma once

#include <QByteArray>
#include <QList>

#include <xcb/xcb.h>

namespace trovell::bench {

class MoveWatcher {
public:
    MoveWatcher(const QByteArray& displayName, const QList<quint32>& windows);
    ~MoveWatcher();
    MoveWatcher(const MoveWatcher&) = delete;
    MoveWatcher& operator=(const MoveWatcher&) = delete;

    /// Returns once no window has moved for a quarter of a second, and says how many seconds after
    /// the call the last one moved; 0 when that was before.
    double waitForRest();

private:
    bool takeEvents();

    xcb_connection_t* m_connection;
};

} // namespace trovell::bench
