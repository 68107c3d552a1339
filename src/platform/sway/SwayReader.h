// SPDX-License-Identifier: MIT
//
// Answers questions about a sway or i3 desktop, and does what needs no verification. Connects anew
// when its connection was lost. One thread, which waits.
#pragma once

#include "platform/desktop/ApplicationGrouping.h"
#include "platform/desktop/UntoldFacts.h"
#include "platform/sway/SwayConnection.h"
#include "platform/sway/SwayTree.h"
#include "windows/WindowSystem.h"

namespace trovell {

class SwayReader {
public:
    /// The functions may be empty; `askX11` is for a desktop that tells no processes.
    SwayReader(QByteArray socketPath, ApplicationIdentifier identify,
               BackgroundApplications background, X11WindowQuestion askX11);

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
    /// Learned once for each window: another server is asked.
    void addUntoldFacts(SwayWindow& window);

    QByteArray m_socketPath;
    ApplicationIdentifier m_identify;
    BackgroundApplications m_background;
    X11WindowQuestion m_askX11;
    std::unique_ptr<SwayConnection> m_connection;
    QHash<WindowId, std::pair<WindowIdentity, ApplicationIdentity>> m_known;
    QHash<WindowId, UntoldFacts> m_untold;
};

} // namespace trovell
