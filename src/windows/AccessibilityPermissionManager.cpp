// SPDX-License-Identifier: MIT

#include "windows/AccessibilityPermissionManager.h"

#include <QCoro/QCoroFuture>

namespace trovell {

namespace {

constexpr int maximumPollCount = 240;
constexpr std::chrono::milliseconds pollInterval{500};

} // namespace

AccessibilityPermissionManager::AccessibilityPermissionManager(Platform platform, Clock& clock)
    : m_platform(std::move(platform)), m_clock(clock), m_isTrusted(m_platform.isProcessTrusted())
{
}

AccessibilityPermissionManager::~AccessibilityPermissionManager()
{
    cancelPolling();
}

void AccessibilityPermissionManager::setTrusted(bool isTrusted)
{
    if (isTrusted == m_isTrusted)
        return;
    m_isTrusted = isTrusted;
    if (isTrusted)
        cancelPolling();
    Q_EMIT
    isTrustedChanged(isTrusted);
}

void AccessibilityPermissionManager::refresh()
{
    setTrusted(m_platform.isProcessTrusted());
}

void AccessibilityPermissionManager::requestAccess()
{
    refresh();
    if (m_isTrusted)
        return;
    setTrusted(m_platform.requestProcessTrust());
    if (!m_isTrusted)
        startPolling();
}

void AccessibilityPermissionManager::openSystemSettings()
{
    refresh();
    if (m_isTrusted || !m_platform.settingsURL.isValid())
        return;
    m_platform.openSettingsURL(m_platform.settingsURL);
    startPolling();
}

void AccessibilityPermissionManager::startPolling()
{
    cancelPolling();
    m_pollingTask = std::make_shared<Poll>(Poll{this});
    poll(m_pollingTask, &m_clock);
}

QCoro::Task<> AccessibilityPermissionManager::poll(std::shared_ptr<Poll> poll, Clock* clock)
{
    for (int check = 0; check < maximumPollCount && poll->manager; ++check) {
        poll->manager->refresh();
        // A grant cancels the poll, which is this one.
        if (!poll->manager)
            co_return;
        auto pause = clock->sleepFor(pollInterval);
        co_await pause;
    }
}

void AccessibilityPermissionManager::cancelPolling()
{
    if (m_pollingTask)
        m_pollingTask->manager = nullptr;
    m_pollingTask.reset();
}

} // namespace trovell
