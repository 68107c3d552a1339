// SPDX-License-Identifier: MIT
//
// Stands in on a desktop whose windows cannot be controlled: nothing runs, nothing is trusted, no
// display is known. Launch items still open. Any thread.
#pragma once

#include "windows/WindowSystem.h"

namespace trovell {

class NullWindowSystem final : public WindowSystem {
public:
    [[nodiscard]] bool isTrusted() const override { return false; }
    bool requestTrust() override { return false; }
    [[nodiscard]] QList<RunningApplication> runningApplications() override { return {}; }
    [[nodiscard]] QList<RunningApplication> applicationsWithWindows() override { return {}; }
    [[nodiscard]] QList<RunningApplication> runningApplications(const QString&) override
    {
        return {};
    }
    void activate(const RunningApplication&) override {}
    [[nodiscard]] QList<DisplaySnapshot> currentDisplays() override { return {}; }
    [[nodiscard]] QList<QList<WindowAttributes>>
    readWindows(const QList<RunningApplication>& applications) const override
    {
        return QList<QList<WindowAttributes>>(applications.size());
    }
    [[nodiscard]] QList<bool> setWindowFrames(const QList<WindowFrameRequest>& requests) override
    {
        return QList<bool>(requests.size(), false);
    }
};

} // namespace trovell
