// SPDX-License-Identifier: MIT
//
// A virtual desktop with many windows of many applications, and the product at work on it.
#pragma once

#include "lab/VirtualDesktop.h"
#include "support/LayoutSession.h"

#include <memory>

namespace trovell::bench {

class CrowdedDesktop {
public:
    explicit CrowdedDesktop(lab::WindowManager windowManager = lab::WindowManager::openbox);

    /// Empty when the desktop runs.
    [[nodiscard]] QString error() const { return m_desktop.error(); }

    /// Starts applications with the numbers `first`, `first` + 1, …, each one process with a
    /// desktop file of its own. Returns when all their windows are old enough to be left alone by
    /// everyone; false when they do not come.
    [[nodiscard]] bool openApplications(int first, int count, int windowsEach);

    [[nodiscard]] lab::VirtualDesktop& desktop() { return m_desktop; }
    /// From the first call on, the product runs on the desktop as it is then.
    [[nodiscard]] test::LayoutSession& session();

    [[nodiscard]] static QString bundleIdentifier(int application);
    [[nodiscard]] static QString windowTitle(int application, int window);

private:
    void installDesktopFile(int application) const;

    lab::VirtualDesktop m_desktop;
    std::unique_ptr<test::LayoutSession> m_session;
    int m_windowCount = 0;
};

} // namespace trovell::bench
