// SPDX-License-Identifier: MIT

#include "windows/AccessibilityPermissionManager.h"

#include <QCoro/QCoroFuture>

namespace trovell {

namespace {

constexpr int maximumPollCount = 240;
constexpr std::chrono::milliseconds pollInterval{500};

} // namespace

AccessibilityPermissionManager::AccessibilityPermissionManager(Platform platform, Clock& clock)
    : m_platform(std::move(platform)), m_clock(clock)
{
    refresh();
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

QCoro::Task<bool> AccessibilityPermissionManager::take(QFuture<bool> answer)
{
    const QPointer<AccessibilityPermissionManager> self(this);
    const bool isTrusted = co_await answer;
    if (self)
        setTrusted(isTrusted);
    co_return self&& isTrusted;
}

QCoro::Task<bool> AccessibilityPermissionManager::refresh()
{
    return take(m_platform.isProcessTrusted());
}

QCoro::Task<> AccessibilityPermissionManager::requestAccess()
{
    const QPointer<AccessibilityPermissionManager> self(this);
    bool isTrusted = co_await refresh();
    if (!self || isTrusted)
        co_return;
    const QFuture<bool> asking = m_platform.requestProcessTrust();
    isTrusted = co_await take(asking);
    if (self && !isTrusted)
        startPolling();
}

QCoro::Task<> AccessibilityPermissionManager::openSystemSettings()
{
    const QPointer<AccessibilityPermissionManager> self(this);
    const bool isTrusted = co_await refresh();
    if (!self || isTrusted || !m_platform.settingsURL.isValid())
        co_return;
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
        auto answer = poll->manager->refresh();
        co_await answer;
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
