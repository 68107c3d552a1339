// SPDX-License-Identifier: MIT
//
// A connection to the X server that is closed by its destructor, and the two steps in which the
// adapter reads: send a whole batch of requests, then take all replies. Any thread; several
// threads may read through one connection at the same time (xcb keeps the replies apart), as long
// as nobody selects events on it.
#pragma once

#include "platform/x11/X11Atoms.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <xcb/xcb.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <type_traits>

namespace trovell {

/// What holds for every connection to one server.
struct X11Server {
    QByteArray displayName;
    X11Atoms atoms;
    /// RandR 1.5: displays are monitors.
    bool hasMonitors = false;
    /// X-Resource 1.2: the process of a client is known.
    bool hasClientIds = false;
};

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// Null when the request failed, because its window is gone or the server is.
template <class Reply> using X11Reply = std::unique_ptr<Reply, FreeReply>;
using X11PropertyReply = X11Reply<xcb_get_property_reply_t>;

class X11Connection {
public:
    /// Connects and asks what the server can do. Without a server the connection is not alive;
    /// every reply is null then, and nothing needs to be checked before a request.
    explicit X11Connection(const QByteArray& displayName);
    /// Connects once more to a server that is known already.
    explicit X11Connection(const X11Server& server);
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    /// Never true again once it was false.
    [[nodiscard]] bool isAlive() const;
    [[nodiscard]] xcb_connection_t* get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    [[nodiscard]] const X11Server& server() const { return m_server; }
    [[nodiscard]] const X11Atoms& atoms() const { return m_server.atoms; }
    /// The bits of a window's number that are the same for all windows of one client.
    [[nodiscard]] quint32 clientOf(xcb_window_t window) const { return window & ~m_idMask; }

    /// At most 4 KB of a window's property; what is longer is cut off.
    [[nodiscard]] xcb_get_property_cookie_t requestProperty(xcb_window_t window,
                                                            xcb_atom_t property) const;

    /// The number of a name, which the server is waited for.
    [[nodiscard]] xcb_atom_t atom(const QByteArray& name) const;

    /// Between the requests and the replies of a batch: sends everything that is still waiting.
    void finishBatch() const;
    /// Drops what the server sent unasked, such as news of the keyboard, which would pile up on a
    /// connection whose events nobody takes.
    void dropEvents() const;
    /// How often `finishBatch` was called, which is how often someone waited for the server.
    [[nodiscard]] int roundTripCount() const { return m_roundTripCount; }

    /// The reply of a request that belongs to a finished batch, for example
    /// `reply<xcb_get_geometry_reply>(cookie)`.
    template <auto receive, class Cookie> [[nodiscard]] auto reply(Cookie cookie) const
    {
        auto* result = receive(m_connection, cookie, nullptr);
        return X11Reply<std::remove_pointer_t<decltype(result)>>(result);
    }
    [[nodiscard]] X11PropertyReply reply(xcb_get_property_cookie_t cookie) const
    {
        return reply<xcb_get_property_reply>(cookie);
    }

    /// Sends the window manager a client message about `window` (EWMH section 1.4). Not flushed.
    void sendToRoot(xcb_window_t window, xcb_atom_t type, const std::array<quint32, 5>& data) const;

private:
    void connect();

    X11Server m_server;
    xcb_connection_t* m_connection = nullptr;
    int m_screenNumber = 0;
    xcb_window_t m_root = 0;
    quint32 m_idMask = 0;
    mutable std::atomic<int> m_roundTripCount = 0;
};

/// The 32-bit numbers of a property: cardinals, atoms or windows. Empty when it is missing or has
/// another format.
[[nodiscard]] QList<quint32> propertyNumbers(const X11PropertyReply& reply);

/// The bytes of a text property.
[[nodiscard]] QByteArray propertyBytes(const X11PropertyReply& reply);

/// A text property in any of the encodings of ICCCM 2.7.1 and EWMH; empty when it is missing, and
/// for compound text in other character sets than Latin-1.
[[nodiscard]] QString propertyText(const X11PropertyReply& reply, const X11Atoms& atoms);

} // namespace trovell
