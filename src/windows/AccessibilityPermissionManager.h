// SPDX-License-Identifier: MIT
//
// Knows whether windows of other applications can be read and moved, asks for it, and, once the
// user was sent to the settings, keeps checking for two minutes. Main thread.
#pragma once

#include "support/Clock.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>

namespace trovell {

class AccessibilityPermissionManager final : public QObject {
    Q_OBJECT

public:
    /// The desktop's side of it, see `WindowSystem`.
    struct Platform {
        std::function<bool()> isProcessTrusted;
        std::function<bool()> requestProcessTrust;
        std::function<void(const QUrl&)> openSettingsURL;
        /// Where the user grants window control; invalid on a desktop that has no such place.
        QUrl settingsURL;
    };

    AccessibilityPermissionManager(Platform platform, Clock& clock);
    ~AccessibilityPermissionManager() override;

    [[nodiscard]] bool isTrusted() const { return m_isTrusted; }

    void setTrusted(bool isTrusted);
    /// Asks the desktop again.
    void refresh();
    /// Lets the desktop ask the user, and polls for the answer.
    void requestAccess();
    /// Opens the desktop's settings where the user can grant access, and polls for it. Nothing
    /// when access is granted or the desktop has no such settings.
    void openSystemSettings();
    /// Checks now and every half second, 240 times at most, until access is granted. Replaces a
    /// poll that runs.
    void startPolling();

Q_SIGNALS:
    void isTrustedChanged(bool isTrusted);

private:
    /// Shared with the poll, which may outlive its manager while it sleeps.
    struct Poll {
        AccessibilityPermissionManager* manager = nullptr; ///< none once cancelled
    };

    static QCoro::Task<> poll(std::shared_ptr<Poll> poll, Clock* clock);
    void cancelPolling();

    Platform m_platform;
    Clock& m_clock;
    std::shared_ptr<Poll> m_pollingTask;
    bool m_isTrusted = false;
};

} // namespace trovell
