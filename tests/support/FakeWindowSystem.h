// SPDX-License-Identifier: MIT
//
// A desktop that a test scripts: applications with windows that can be read and moved, displays
// that come and go. Counts what is asked of it.
#pragma once

#include "windows/WindowSystem.h"

#include <QHash>
#include <QMutex>
#include <QStringList>

namespace trovell {

using namespace Qt::StringLiterals;

class FakeWindowSystem final : public WindowSystem {
public:
    struct Window {
        QString title = {};
        QRectF frame{100, 100, 600, 400}; ///< accessibility coordinates
        QString role = u"AXWindow"_s;
        std::optional<QString> subrole = u"AXStandardWindow"_s;
        bool isMinimized = false;
        bool refusesFrames = false;
    };

    FakeWindowSystem();

    /// Adds an application without windows; its name is the identifier unless given.
    RunningApplication& addApplication(const QString& bundleIdentifier, const QString& name = {});
    /// Adds the application, too, when it does not run yet.
    WindowHandle addWindow(const QString& bundleIdentifier, const Window& window);
    void removeWindow(WindowHandle handle)
    {
        const QMutexLocker lock(&m_mutex);
        m_windows.remove(handle);
    }
    [[nodiscard]] Window window(WindowHandle handle) const
    {
        const QMutexLocker lock(&m_mutex);
        return m_windows.value(handle);
    }
    [[nodiscard]] static DisplaySnapshot display(const QString& name, const QRectF& frame,
                                                 const QRectF& visibleFrame, bool isMain);

    bool trusted = true;
    QList<DisplaySnapshot> displays;
    /// In the order in which they were brought forward.
    QStringList activated;
    /// Called on the worker before the windows of a list of applications are read.
    std::function<void(const QList<RunningApplication>&)> onRead;

    [[nodiscard]] int readCount() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_readCount;
    }

    [[nodiscard]] bool isTrusted() const override { return trusted; }
    bool requestTrust() override { return trusted; }
    [[nodiscard]] QList<RunningApplication> runningApplications() override
    {
        const QMutexLocker lock(&m_mutex);
        return m_applications;
    }
    [[nodiscard]] QList<RunningApplication> applicationsWithWindows() override;
    [[nodiscard]] QList<RunningApplication>
    runningApplications(const QString& bundleIdentifier) override;
    void activate(const RunningApplication& application) override
    {
        activated.append(application.bundleIdentifier.value_or(QString()));
    }
    [[nodiscard]] QList<DisplaySnapshot> currentDisplays() override { return displays; }
    [[nodiscard]] QList<QList<WindowAttributes>>
    readWindows(const QList<RunningApplication>& applications) const override;
    [[nodiscard]] QList<bool> setWindowFrames(const QList<WindowFrameRequest>& requests) override;

private:
    /// Tests run the product's workers for real.
    mutable QMutex m_mutex;
    QList<RunningApplication> m_applications;
    QHash<WindowHandle, Window> m_windows;
    mutable int m_readCount = 0;
    WindowHandle m_lastHandle = 0;
};

} // namespace trovell
