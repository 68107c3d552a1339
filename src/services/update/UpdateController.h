// SPDX-License-Identifier: MIT
//
// The program's entry to software updates: decides whether there can be any at all, and lets the
// user ask for a check. Main thread.
#pragma once

#include "services/update/Updater.h"

#include <QObject>
#include <QUrl>

#include <memory>
#include <optional>

namespace trovell {

class UpdateController final : public QObject {
    Q_OBJECT

public:
    /// Configured when there is a feed address and a key that is not empty. Neither is checked
    /// here, and nothing is fetched before the user asks.
    UpdateController(const std::optional<QUrl>& feedAddress,
                     const std::optional<QString>& publicKey, UpdateEnvironment environment);
    ~UpdateController() override;

    [[nodiscard]] bool isConfigured() const { return m_controller != nullptr; }
    /// Once a check was asked for that cannot be made.
    [[nodiscard]] const Message& statusMessage() const { return m_statusMessage; }
    /// None when not configured. Lives as long as this object.
    [[nodiscard]] Updater* controller() const { return m_controller.get(); }

    /// Starts a check, whose progress the updater tells, or sets the status message.
    void checkForUpdates();

Q_SIGNALS:
    void statusMessageChanged();

private:
    std::unique_ptr<Updater> m_controller;
    Message m_statusMessage;
};

} // namespace trovell
