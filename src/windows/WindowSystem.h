// SPDX-License-Identifier: MIT
//
// The desktop's window control, as capture, restore and launch need it: what runs, which windows
// there are and where, which displays, and putting windows in place. Each desktop has its own
// adapter.
//
// Every operation is called on the main thread, waits for nothing and answers with a future that
// finishes, without an exception and also when the desktop goes away. Operations speak in whole
// passes, because desktops answer late.
#pragma once

#include "display/Display.h"
#include "windows/DesktopWindow.h"

#include <QFuture>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace trovell {

/// Whether windows of other applications can be read and moved, and why not.
enum class WindowControl {
    available,
    /// This desktop does not offer it.
    unsupported,
    /// The person at the desktop has to allow it first.
    notGranted,
    /// The desktop is gone, or hangs.
    notAnswering,
};

struct DesktopAbilities {
    /// What of a window can be set besides its frame.
    WindowStates states;
    bool hasVirtualDesktops = false;
    /// Windows can be translucent.
    bool blendsWindows = true;
};

/// What is wanted to know; window control and abilities are always answered.
struct DesktopQuestion {
    enum class Applications { none, named, all };

    Applications applications = Applications::none;
    /// The identifiers of the `named` ones.
    QSet<QString> identifiers = {};
    /// Their windows, too; without it `windows` stay empty.
    bool windows = false;
    /// Also applications that have none, which takes longer to find out.
    bool withoutWindows = false;
    bool displays = false;
};

struct DesktopSnapshot {
    WindowControl control = WindowControl::unsupported;
    DesktopAbilities abilities = {};
    /// In a stable order, this process's own included. Each identifier once.
    QList<RunningApplication> applications = {};
    /// In a stable order.
    QList<Display> displays = {};
    /// In their order; empty where the desktop has none or does not tell.
    QStringList virtualDesktopNames = {};
    /// The one in view; none where that is not known.
    std::optional<int> currentVirtualDesktop = {};
};

/// One virtual desktop, or all of them.
struct DesktopPlace {
    /// Counted from 0; meaningless with `isAll`.
    int index = 0;
    bool isAll = false;

    bool operator==(const DesktopPlace&) const = default;
};

/// How a window is to stand.
struct FrameRequest {
    WindowId window;
    /// Desktop coordinates. For a window that is to fill a display: the frame it falls back to.
    QRectF frame;
    /// What it is to be, among the states that this desktop can set, and nothing else of them.
    /// None leaves states alone, except that those that fill a display come off a window that does
    /// not have its frame yet.
    std::optional<WindowStates> states = {};
    /// None leaves it where it is. One that is missing is made where the desktop allows that.
    std::optional<DesktopPlace> virtualDesktop = {};
};

enum class FrameOutcome {
    taken,
    /// In place, but with another size than it was asked for, though its own rules allow that.
    otherSize,
    /// In place, but the desktop did not bring it to its virtual desktop.
    otherDesktop,
    /// In place, but not in the states that were asked for.
    otherStates,
    /// The desktop's own layout decides about its frame.
    tiled,
    /// A person moved or resized it meanwhile, and keeps it.
    movedByPerson,
    refused,
    /// Nobody said anything in time: the desktop is busy or hangs. Worth another try.
    unanswered,
};

class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    /// Everything is read when the question is served, at about the same moment. Without window
    /// control only that is answered, together with applications that have no window.
    [[nodiscard]] virtual QFuture<DesktopSnapshot> ask(const DesktopQuestion& question) = 0;

    /// Lets the desktop ask the person for consent where it can. Does not wait for the person.
    [[nodiscard]] virtual QFuture<WindowControl> requestControl() = 0;

    /// Brings all windows to their desktops, frames and states in one go; one outcome for each
    /// request, in their order. A window that stands as wanted is not touched. A size that the
    /// window's own rules do not allow is rounded to one they allow; that counts as taken. Finishes
    /// once every window came to rest, which a window that does not react can delay by at most two
    /// seconds. Several calls may be under way: they delay each other only over the same window,
    /// which the later one gets.
    [[nodiscard]] virtual QFuture<QList<FrameOutcome>>
    setFrames(const QList<FrameRequest>& requests) = 0;

    /// Brings the topmost window of each of these applications forward and gives it the focus, so
    /// that the first one ends in front. Those that do not run are passed over, and so are those on
    /// another virtual desktop, unless all of them lie together on another one.
    virtual QFuture<void> activate(const QStringList& identifiers) = 0;

    /// Stacks these windows in this order, the last one on top of the others, without giving any of
    /// them the focus or changing the desktop in view.
    virtual QFuture<void> restack(const QList<WindowId>& backToFront) = 0;

    /// Brings one virtual desktop into view.
    virtual QFuture<void> showVirtualDesktop(int index) = 0;

    /// Brings a window of this process forward, by the number that its toolkit knows it by.
    virtual void activateOwnWindow(quintptr nativeWindow) = 0;
};

} // namespace trovell
