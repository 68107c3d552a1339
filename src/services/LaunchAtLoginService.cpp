// SPDX-License-Identifier: MIT

#include "services/LaunchAtLoginService.h"

namespace trovell {

namespace {

bool isOn(const LoginItemSystem& system)
{
    return system.status() == LoginItemStatus::enabled;
}

} // namespace

LaunchAtLoginService::LaunchAtLoginService(LoginItemSystem& system)
    : m_system(system), m_isEnabled(isOn(system))
{
}

void LaunchAtLoginService::setEnabled(bool isWanted)
{
    const auto result = isWanted ? m_system.registerLoginItem() : m_system.unregisterLoginItem();
    if (result) {
        refresh();
        setErrorMessage(std::nullopt);
    } else {
        setErrorMessage(result.error());
        refresh();
    }
}

void LaunchAtLoginService::refresh()
{
    const bool isEnabled = isOn(m_system);
    if (isEnabled == m_isEnabled)
        return;
    m_isEnabled = isEnabled;
    Q_EMIT
    isEnabledChanged(isEnabled);
}

void LaunchAtLoginService::setErrorMessage(const std::optional<QString>& message)
{
    if (message == m_errorMessage)
        return;
    m_errorMessage = message;
    Q_EMIT
    errorMessageChanged();
}

} // namespace trovell
