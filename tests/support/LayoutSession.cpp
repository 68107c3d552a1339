// SPDX-License-Identifier: MIT

#include "support/LayoutSession.h"

#include "preferences/AppConfiguration.h"
#include "support/StoreContents.h"

namespace trovell::test {

using namespace Qt::StringLiterals;

LayoutSession::LayoutSession(VirtualDesktop& desktop)
    : m_platform((desktop.enter(),
                  backEndFor(sessionFacts()).create(appConfiguration().bundleIdentifier))),
      m_defaults(m_folder.filePath(u"preferences.json"_s)),
      m_dependencies(m_platform, m_defaults, m_clock, appConfiguration()),
      m_store(openStore(m_folder.filePath(u"store"_s)))
{
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
    const bool isTrusted = QCoro::waitFor(m_dependencies.accessibility().refresh());
    QCoro::waitFor(m_dependencies.launcher().start(&workspace, isTrusted, timeoutSeconds));
    QStringList lines;
    const QList<LaunchResult> results = m_dependencies.launcher().latestReport()->results;
    for (const LaunchResult& result : results)
        lines.append(
            u"%1: %2 %3"_s
                .arg(result.name.productText(), rawValue(result.kind), result.detail.productText())
                .trimmed());
    lines.sort();
    return lines;
}

} // namespace trovell::test
