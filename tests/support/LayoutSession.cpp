#include "support/LayoutSession.h"

#include "app/AppConfiguration.h"

#include <QMap>
#include <QTest>

namespace trovell::test {

LayoutSession::LayoutSession(VirtualDesktop& desktop)
    : m_platform((desktop.enter(), makePlatformAdapters(appConfiguration().bundleIdentifier))),
      m_defaults(m_folder.filePath(QStringLiteral("preferences.json"))),
      m_dependencies(m_platform, m_defaults, m_clock, appConfiguration())
{
    auto store = WorkspaceStore::open(m_folder.filePath(QStringLiteral("store")));
    if (!store)
        qFatal("%s", qPrintable(description(store.error())));
    m_store = std::move(*store);
}

TrovellWorkspace* LayoutSession::capture()
{
    const auto captured =
        QCoro::waitFor(m_dependencies.windowCapture().captureApplications({}, false));
    if (!captured)
        return nullptr;
    auto& workspace =
        m_store->mainContext().insert(std::make_unique<TrovellWorkspace>(WorkspaceValues()));
    for (const CapturedApplication& application : *captured) {
        for (const CapturedWindow& window : application.windows)
            workspace.appendPlacement(makePlacement(window));
    }
    return m_store->mainContext().save() ? &workspace : nullptr;
}

QStringList LayoutSession::start(TrovellWorkspace& workspace, double timeoutSeconds)
{
    m_dependencies.accessibility().refresh();
    QCoro::waitFor(m_dependencies.launcher().start(
        &workspace, m_dependencies.accessibility().isTrusted(), timeoutSeconds));
    QStringList lines;
    const QList<LaunchResult> results = m_dependencies.launcher().latestReport()->results;
    for (const LaunchResult& result : results)
        lines.append(QStringLiteral("%1: %2 %3")
                         .arg(result.name, rawValue(result.kind), result.detail.value_or(QString()))
                         .trimmed());
    lines.sort();
    return lines;
}

QMap<QString, QRect> framesByTitle(VirtualDesktop& desktop)
{
    QMap<QString, QRect> frames;
    const QList<InspectedWindow> windows = desktop.inspector().windows();
    for (const InspectedWindow& window : windows)
        frames.insert(window.title, window.frame);
    return frames;
}

} // namespace trovell::test
