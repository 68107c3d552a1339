// SPDX-License-Identifier: MIT
//
// Reads the ordinary windows of the running applications. Main thread; what is read is turned into
// a capture on a worker.
#pragma once

#include "support/Expected.h"
#include "windows/CapturedApplication.h"
#include "windows/StoredForms.h"
#include "windows/WindowServiceError.h"
#include "windows/WindowSystem.h"

#include <QCoro/QCoroTask>
#include <QSet>

namespace trovell {

class WindowCaptureService {
public:
    /// `ownProcessIdentifier`: the process whose windows are never captured.
    WindowCaptureService(WindowSystem& windowSystem, qint64 ownProcessIdentifier);

    using Capture = Expected<QList<CapturedApplication>, WindowServiceError>;

    /// The applications that have ordinary windows, by name. `filter` limits them to some bundle
    /// identifiers. Without any, the answer is `noWindows` unless `allowEmpty`.
    [[nodiscard]] QCoro::Task<Capture> captureApplications(std::optional<QSet<QString>> filter,
                                                           bool allowEmpty) const;

    /// The running applications without their windows, in running order. Needs no permission.
    [[nodiscard]] QCoro::Task<QList<CapturedApplication>> runningApplications() const;

private:
    WindowSystem& m_windowSystem;
    qint64 m_ownProcessIdentifier;
};

/// The captured application of a running one, with those of its windows that are ordinary, each on
/// the display that it lies on. Any thread.
[[nodiscard]] CapturedApplication makeCapturedApplication(const RunningApplication& application,
                                                          const StoredDisplays& displays);

} // namespace trovell
