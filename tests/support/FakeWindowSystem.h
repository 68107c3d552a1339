// SPDX-License-Identifier: MIT
//
// A desktop that a test scripts: applications with windows that can be read and moved, displays
// that come and go. Answers at once, and counts what is asked of it. Main thread.
#pragma once

#include "display/DisplayFingerprint.h"
#include "windows/WindowSystem.h"

#include <QHash>
#include <QStringList>

#include <functional>

namespace trovell {

using namespace Qt::StringLiterals;

class FakeWindowSystem final : public WindowSystem {
public:
    struct Window {
        QString title = {};
        QRectF frame{100, 100, 600, 400};
        WindowKind kind = WindowKind::standard;
        bool isMinimized = false;
        bool refusesFrames = false;
        WindowStates states = {};
        std::optional<DesktopPlace> virtualDesktop = {};

        bool operator==(const Window&) const = default;
    };

    FakeWindowSystem();
    /// What was asked in silence stays unanswered.
    ~FakeWindowSystem() override;
    Q_DISABLE_COPY_MOVE(FakeWindowSystem)

    /// Adds an application without windows; its name is the identifier unless given.
    RunningApplication& addApplication(const QString& bundleIdentifier, const QString& name = {});
    /// Adds the application, too, when it does not run yet.
    WindowId addWindow(const QString& bundleIdentifier, const Window& window);
    void removeWindow(const WindowId& id) { m_windows.remove(id); }
    [[nodiscard]] Window window(const WindowId& id) const { return m_windows.value(id); }
    [[nodiscard]] bool isRunning(const QString& bundleIdentifier) const;
    /// As the display is stored.
    [[nodiscard]] DisplayFingerprint fingerprint(qsizetype display) const;

    bool trusted = true;
    /// Says nothing about windows until `answer`.
    bool isSilent = false;
    QList<Display> displays;
    QStringList virtualDesktopNames;
    int desktopInView = 0;
    /// In the order in which they were brought forward.
    QStringList activated;
    /// Every window that did not stand as it was asked to and was changed, in that order.
    QList<WindowId> placed;
    /// As last asked for.
    QList<WindowId> stacking;
    std::optional<int> shownDesktop;
    /// Called before windows are read.
    std::function<void()> onRead;

    /// How often windows were read.
    [[nodiscard]] int readCount() const { return m_readCount; }

    /// Answers everything that was asked in silence.
    void answer();

    [[nodiscard]] DesktopSnapshot read(const DesktopQuestion& question);
    [[nodiscard]] QList<FrameOutcome> place(const QList<FrameRequest>& requests);

    [[nodiscard]] QFuture<DesktopSnapshot> ask(const DesktopQuestion& question) override;
    [[nodiscard]] QFuture<WindowControl> requestControl() override;
    [[nodiscard]] QFuture<QList<FrameOutcome>>
    setFrames(const QList<FrameRequest>& requests) override;
    QFuture<void> activate(const QStringList& identifiers) override;
    QFuture<void> restack(const QList<WindowId>& backToFront) override;
    QFuture<void> showVirtualDesktop(int index) override;
    void activateOwnWindow(quintptr) override {}

private:
    [[nodiscard]] QList<DesktopWindow> windowsOf(const QString& bundleIdentifier) const;

    QList<RunningApplication> m_applications;
    QHash<WindowId, Window> m_windows;
    /// By identifier, in order of appearance.
    QHash<QString, QList<WindowId>> m_windowsOfApplication;
    struct Unanswered {
        DesktopQuestion question;
        std::shared_ptr<QPromise<DesktopSnapshot>> answer;
    };
    QList<Unanswered> m_unanswered;
    int m_readCount = 0;
    quint64 m_lastId = 0;
};

} // namespace trovell
