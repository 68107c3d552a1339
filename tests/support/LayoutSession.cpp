// SPDX-License-Identifier: MIT

#include "support/LayoutSession.h"

#include "editing/CaptureDraft.h"
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

TrovellWorkspace* LayoutSession::capture(Items items)
{
    const auto captured =
        QCoro::waitFor(m_dependencies.windowCapture().captureApplications({}, false));
    if (!captured)
        return nullptr;
    CaptureDraft draft = makeCaptureDraft(CapturePurpose::create, nullptr);
    draft.basics.name = u"Work"_s;
    draft.applications = *captured;
    for (CapturedApplication& application : draft.applications)
        application.addAsLaunchItem = items == Items::applications;
    const auto saved = saveCapture(CapturePurpose::create, draft, nullptr, m_store->mainContext(),
                                   m_dependencies.resources());
    return saved ? *saved : nullptr;
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
