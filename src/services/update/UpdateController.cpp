// SPDX-License-Identifier: MIT

#include "services/update/UpdateController.h"

namespace trovell {

UpdateController::UpdateController(const std::optional<QUrl>& feedAddress,
                                   const std::optional<QString>& publicKey,
                                   UpdateEnvironment environment)
{
    const QString key = publicKey.value_or(QString());
    if (feedAddress && !key.isEmpty())
        m_controller = std::make_unique<Updater>(*feedAddress, key, std::move(environment));
}

UpdateController::~UpdateController() = default;

void UpdateController::checkForUpdates()
{
    if (m_controller)
        return m_controller->check();
    if (!m_statusMessage.isEmpty())
        return;
    m_statusMessage =
        u"Update checks will be available after the Sparkle feed and EdDSA key are configured."_key;
    Q_EMIT
    statusMessageChanged();
}

} // namespace trovell
