// SPDX-License-Identifier: MIT
//
// The program in a process of its own, timed and weighed from outside.
#pragma once

#include "lab/VirtualDesktop.h"

#include <optional>

namespace trovell::bench {

/// Prepares the desktop's HOME: onboarding done, and a store with that many workspaces.
[[nodiscard]] bool prepareHome(const lab::VirtualDesktop& desktop, int workspaceCount);

/// Drops files from the system's cache, so that the next start reads them from the disk. False
/// when this user may not.
[[nodiscard]] bool dropCaches();

struct IdleCost {
    double shareOfCore = 0;
    /// How often any of its threads went to sleep, per second.
    double wakeUpsPerSecond = 0;
};

class ProgramRun {
public:
    /// Starts the program, the product or one that looks like it, and waits until its main window
    /// is painted.
    explicit ProgramRun(lab::VirtualDesktop& desktop, const char* program = lab::productPath());
    ~ProgramRun();
    Q_DISABLE_COPY_MOVE(ProgramRun)

    /// From the start of the process to the first picture of the main window on the screen, its
    /// list of workspaces in it. None when it did not appear.
    [[nodiscard]] std::optional<double> secondsToPaint() const { return m_secondsToPaint; }

    /// Over some seconds in which nobody touches it.
    [[nodiscard]] IdleCost idle(double seconds) const;
    /// Proportional set size.
    [[nodiscard]] double megabytes() const;
    void closeMainWindow();

private:
    lab::VirtualDesktop& m_desktop;
    QProcess* m_process = nullptr;
    std::optional<double> m_secondsToPaint;
};

} // namespace trovell::bench
