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

DesktopFileIndex::DesktopFileIndex() : m_monitor(g_app_info_monitor_get())
{
    m_monitorHandler = g_signal_connect(m_monitor.get(), "changed", G_CALLBACK(noteChange), this);
    QObject::connect(&m_reading, &QFutureWatcherBase::finished, &m_reading,
                     [this] { takeTable(); });
    startReading();
    m_firstReading = m_reading.future();
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
    {
        const QMutexLocker lock(&m_mutex);
        m_table = m_reading.result();
    }
    if (m_isReadingOutdated)
        startReading();
}

DesktopFileIndex::Table DesktopFileIndex::table() const
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_table)
            return m_table;
    }
    return m_firstReading.result();
}

std::optional<ApplicationIdentity> DesktopFileIndex::identify(const WindowIdentity& window) const
{
    const Table applications = table();
    const ProcessFacts process = readProcessFacts(window.processIdentifier);
    return applicationIdentity(applications->identify(window, process));
}

std::optional<ApplicationIdentity>
DesktopFileIndex::application(const QString& bundleIdentifier) const
{
    const Table applications = table();
    return applicationIdentity(applications->entry(bundleIdentifier));
}

QList<ApplicationIdentity> DesktopFileIndex::visibleApplications() const
{
    const Table table = this->table();
    QList<ApplicationIdentity> applications;
    for (const DesktopEntry& entry : table->entries()) {
        if (!entry.isConcealed)
            applications.append(*applicationIdentity(&entry));
    }
    return applications;
}

} // namespace trovell
