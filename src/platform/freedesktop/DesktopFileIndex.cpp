// SPDX-License-Identifier: MIT

#include "platform/freedesktop/DesktopFileIndex.h"

#include <QtConcurrentRun>

namespace trovell {

namespace {

std::shared_ptr<const DesktopFileTable> readTable()
{
    return std::make_shared<const DesktopFileTable>(loadDesktopEntries());
}

} // namespace

static size_t qHash(const WindowIdentity& window, size_t seed) noexcept
{
    return qHashMulti(seed, window.processIdentifier, window.wmClass, window.wmInstance,
                      window.gtkApplicationId);
}

DesktopFileIndex::DesktopFileIndex() : m_monitor(g_app_info_monitor_get())
{
    m_monitorHandler = g_signal_connect(m_monitor.get(), "changed", G_CALLBACK(noteChange), this);
    QObject::connect(&m_reading, &QFutureWatcherBase::finished, &m_reading,
                     [this] { takeTable(); });
    startReading();
}

DesktopFileIndex::~DesktopFileIndex()
{
    g_signal_handler_disconnect(m_monitor.get(), m_monitorHandler);
}

void DesktopFileIndex::noteChange(GAppInfoMonitor*, gpointer index)
{
    auto* const self = static_cast<DesktopFileIndex*>(index);
    if (self->m_reading.isRunning())
        self->m_isReadingOutdated = true;
    else
        self->startReading();
}

void DesktopFileIndex::startReading()
{
    m_isReadingOutdated = false;
    m_reading.setFuture(QtConcurrent::run(&readTable));
}

void DesktopFileIndex::takeTable()
{
    m_table = m_reading.result();
    m_identified.clear();
    if (m_isReadingOutdated)
        startReading();
}

const DesktopFileTable& DesktopFileIndex::table()
{
    if (!m_table)
        m_table = m_reading.result();
    return *m_table;
}

std::optional<ApplicationIdentity> DesktopFileIndex::identify(const WindowIdentity& window)
{
    const DesktopFileTable& applications = table();
    const auto known = m_identified.constFind(window);
    if (known != m_identified.cend())
        return *known;
    // Process numbers come and go, and the table with them.
    constexpr qsizetype mostRemembered = 1000;
    if (m_identified.size() >= mostRemembered)
        m_identified.clear();
    const ProcessFacts process = readProcessFacts(window.processIdentifier);
    auto identity = applicationIdentity(applications.identify(window, process));
    m_identified.insert(window, identity);
    return identity;
}

std::optional<ApplicationIdentity> DesktopFileIndex::application(const QString& bundleIdentifier)
{
    return applicationIdentity(table().entry(bundleIdentifier));
}

QList<ApplicationIdentity> DesktopFileIndex::visibleApplications()
{
    QList<ApplicationIdentity> applications;
    for (const DesktopEntry& entry : table().entries()) {
        if (!entry.isConcealed)
            applications.append(*applicationIdentity(&entry));
    }
    return applications;
}

} // namespace trovell
