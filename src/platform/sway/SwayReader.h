// SPDX-License-Identifier: MIT
//
// Answers questions about a sway or i3 desktop, and does what needs no verification. Connects anew
// when its connection was lost. One thread, which waits.
#pragma once

#include "platform/desktop/ApplicationGrouping.h"
#include "platform/sway/SwayConnection.h"
#include "platform/sway/SwayTree.h"
#include "windows/WindowSystem.h"

#include <functional>

namespace trovell {

/// The process of an X11 window, where the desktop does not tell; 0 when it is not known.
using ProcessOfX11Window = std::function<qint32(quint32 window)>;

class SwayReader {
public:
    /// The functions may be empty.
    SwayReader(QByteArray socketPath, ApplicationIdentifier identify,
               BackgroundApplications background, ProcessOfX11Window processOf);

    [[nodiscard]] DesktopSnapshot answer(const DesktopQuestion& question);
    void activate(const QStringList& identifiers);
    /// A window of this process: by its X11 window, else the one that was opened last.
    void activateOwnWindow(quintptr nativeWindow);
    void restack(const QList<WindowId>& backToFront);
    void showVirtualDesktop(int index);

private:
    [[nodiscard]] SwayConnection& connection();
    [[nodiscard]] QList<IdentifiedWindow> identify(const SwayTree& tree);
    [[nodiscard]] ApplicationIdentity applicationOf(const SwayWindow& window);
    /// Learned once for each window: the process may be asked of another server.
    [[nodiscard]] qint32 processOf(const SwayWindow& window);

    QByteArray m_socketPath;
    ApplicationIdentifier m_identify;
    BackgroundApplications m_background;
    ProcessOfX11Window m_processOf;
    std::unique_ptr<SwayConnection> m_connection;
    QHash<WindowId, std::pair<WindowIdentity, ApplicationIdentity>> m_known;
    QHash<WindowId, qint32> m_processes;
};

} // namespace trovell
