// SPDX-License-Identifier: MIT
//
// Knows whether windows of other applications can be read and moved, asks for it, and, once the
// user was sent to the settings, keeps checking for two minutes. Main thread.
#pragma once

#include "support/Clock.h"

#include <QCoro/QCoroTask>
#include <QFuture>
#include <QObject>
#include <QPointer>
#include <QUrl>

#include <functional>
#include <memory>

namespace trovell {

class AccessibilityPermissionManager final : public QObject {
    Q_OBJECT

public:
    /// The desktop's side of it, see `WindowSystem`.
    struct Platform {
        std::function<QFuture<bool>()> isProcessTrusted;
        std::function<QFuture<bool>()> requestProcessTrust;
        std::function<void(const QUrl&)> openSettingsURL;
        /// Where the user grants window control; invalid on a desktop that has no such place.
        QUrl settingsURL;
    };

    /// Asks the desktop for the first time; until it answers nothing is trusted.
    AccessibilityPermissionManager(Platform platform, Clock& clock);
    ~AccessibilityPermissionManager() override;

    [[nodiscard]] bool isTrusted() const { return m_isTrusted; }

    void setTrusted(bool isTrusted);

    // What these start goes on without anyone waiting for it, also if the manager goes away.

    /// Asks the desktop again. Ends with what it answered.
    QCoro::Task<bool> refresh();
    /// Lets the desktop ask the user, and polls for the answer.
    QCoro::Task<> requestAccess();
    /// Opens the desktop's settings where the user can grant access, and polls for it. Nothing
    /// when access is granted or the desktop has no such settings.
    QCoro::Task<> openSystemSettings();
    /// Checks now and every half second, 240 times at most, until access is granted. Replaces a
    /// poll that runs.
    void startPolling();

Q_SIGNALS:
    void isTrustedChanged(bool isTrusted);

private:
    /// Shared with the poll, which may outlive its manager while it sleeps.
    struct Poll {
        QPointer<AccessibilityPermissionManager> manager; ///< none once cancelled
    };

    QCoro::Task<bool> take(QFuture<bool> answer);
    static QCoro::Task<> poll(std::shared_ptr<Poll> poll, Clock* clock);
    void cancelPolling();

    Platform m_platform;
    Clock& m_clock;
    std::shared_ptr<Poll> m_pollingTask;
    bool m_isTrusted = false;
};

} // namespace trovell
