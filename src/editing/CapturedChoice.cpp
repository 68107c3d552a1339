// SPDX-License-Identifier: MIT

#include "editing/CapturedChoice.h"

#include "launch/ResourceSystem.h"

#include <algorithm>

namespace trovell {

QSet<QString> detectedBundleIdentifiers(const QList<CapturedApplication>& applications)
{
    QSet<QString> identifiers;
    for (const CapturedApplication& application : applications)
        identifiers.insert(application.bundleIdentifier);
    return identifiers;
}

QList<CapturedApplication> launchedApplications(const QList<CapturedApplication>& applications)
{
    QList<CapturedApplication> launched;
    std::ranges::copy_if(applications, std::back_inserter(launched), [](const auto& application) {
        return application.isIncluded && application.addAsLaunchItem;
    });
    return launched;
}

QList<CapturedWindow> includedWindows(const QList<CapturedApplication>& applications)
{
    QList<CapturedWindow> included;
    for (const CapturedApplication& application : applications) {
        if (application.isIncluded)
            std::ranges::copy_if(application.windows, std::back_inserter(included),
                                 &CapturedWindow::isIncluded);
    }
    return included;
}

std::optional<QUrl> applicationURL(const CapturedApplication& application,
                                   const ResourceSystem& resources)
{
    QUrl url(application.applicationURLString.value_or(QString()), QUrl::StrictMode);
    if (url.isValid())
        return url;
    return resources.applicationURL(application.bundleIdentifier);
}

} // namespace trovell
