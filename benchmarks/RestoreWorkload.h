// SPDX-License-Identifier: MIT
//
// Two layouts of the same windows, and what each contestant needs to bring about one of them.
#pragma once

#include "CrowdedDesktop.h"
#include "platform/x11/X11Connection.h"
#include "windows/StoredForms.h"
#include "windows/WindowRestoreService.h"

#include <QByteArrayList>

namespace trovell::bench {

/// How many windows are where they should be, and by how many pixels the worst of the others is
/// not (the largest difference of a coordinate or an extent).
struct Exactness {
    qsizetype exact = 0;
    int worst = 0;
};

/// Whether the layouts are of one virtual desktop, or of four with every fifth window maximised.
enum class Spread { oneDesktop, fourDesktops };

class RestoreWorkload {
public:
    /// The windows that are open now, as `CrowdedDesktop` opened them.
    RestoreWorkload(CrowdedDesktop& crowd, int applications, int windowsEach, Spread spread);

    [[nodiscard]] QList<quint32> windows() const;

    // `layout` is 0 or 1; every window has another position and another size in each.

    /// By application, as the launcher has them.
    [[nodiscard]] QList<QList<WindowPlacementSnapshot>> placements(int layout) const;
    [[nodiscard]] QByteArrayList xdotoolCommand(int layout) const;
    /// One for each window, and where there are several virtual desktops one more, since a call
    /// either moves a window or sends it to a desktop; of states they know nothing.
    [[nodiscard]] QList<QByteArrayList> wmctrlCommands(int layout) const;

    /// Asks the window manager once for every frame and returns at once: nobody can be faster than
    /// what the server and the window manager then need.
    void sendBlindly(const X11Connection& connection, int layout) const;

    [[nodiscard]] Exactness exactness(int layout) const;

private:
    struct Window {
        quint32 id = 0;
        int application = 0;
        int indexInApplication = 0;
        QString title;
        /// How much larger the frame is than the client's window.
        QSize decorations;
    };

    [[nodiscard]] static QRect frame(int layout, qsizetype index);
    [[nodiscard]] static int virtualDesktop(int layout, qsizetype index);
    [[nodiscard]] bool isMaximized(int layout, qsizetype index) const;
    /// Of the frame, or how far from maximised and from its desktop.
    [[nodiscard]] int error(int layout, qsizetype index) const;
    [[nodiscard]] QSize clientSize(int layout, qsizetype index) const;
    [[nodiscard]] WindowPlacementSnapshot placement(int layout, qsizetype index) const;

    CrowdedDesktop& m_crowd;
    Spread m_spread;
    StoredDisplays m_displays;
    QList<Window> m_windows;
};

} // namespace trovell::bench
