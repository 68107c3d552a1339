// SPDX-License-Identifier: MIT

#include "platform/desktop/ApplicationGrouping.h"

#include <QHash>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// Windows with the same key belong to the same application.
QString applicationKey(const IdentifiedWindow& window)
{
    const QString& identifier = window.application.bundleIdentifier;
    return identifier.isEmpty() ? u"process "_s + QString::number(window.processIdentifier)
                                : identifier;
}

std::optional<QString> unlessEmpty(const QString& text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

RunningApplication applicationOf(const IdentifiedWindow& window)
{
    const ApplicationIdentity& identity = window.application;
    RunningApplication application;
    application.processIdentifier = window.processIdentifier;
    application.bundleIdentifier = unlessEmpty(identity.bundleIdentifier);
    application.localizedName = unlessEmpty(identity.name);
    application.bundleURL = unlessEmpty(identity.url.toString(QUrl::FullyEncoded));
    return application;
}

/// A window of that kind shows that someone works with its application.
bool isOrdinary(std::optional<WindowKind> kind)
{
    return kind == WindowKind::standard || kind == WindowKind::dialog;
}

} // namespace

QList<RunningApplication> groupWindows(const QList<IdentifiedWindow>& windows)
{
    QList<RunningApplication> applications;
    QHash<QString, qsizetype> positions;
    for (const IdentifiedWindow& window : windows) {
        const QString key = applicationKey(window);
        const auto known = positions.constFind(key);
        const qsizetype position = known == positions.cend() ? applications.size() : *known;
        if (position == applications.size()) {
            positions.insert(key, position);
            applications.append(applicationOf(window));
        }
        RunningApplication& application = applications[position];
        application.isRegular = application.isRegular || isOrdinary(window.kind);
        if (window.kind)
            application.windows.append({.id = window.id, .kind = *window.kind});
    }
    // What only draws a panel or the desktop, as file managers do, is not at work.
    applications.removeIf([](const auto& application) { return application.windows.isEmpty(); });
    return applications;
}

QList<RunningApplication> applicationsAskedFor(const DesktopQuestion& question,
                                               QList<RunningApplication> withWindows,
                                               const BackgroundApplications& background)
{
    using Applications = DesktopQuestion::Applications;
    if (question.applications == Applications::none)
        return {};
    QList<RunningApplication> applications = std::move(withWindows);
    std::optional<QSet<QString>> missing;
    if (question.applications == Applications::named) {
        missing = question.identifiers;
        applications.removeIf([&](const RunningApplication& application) {
            return !missing->contains(application.bundleIdentifier.value_or(QString()));
        });
        for (const RunningApplication& application : std::as_const(applications))
            missing->remove(*application.bundleIdentifier);
    }
    if (!question.withoutWindows) {
        applications.removeIf(
            [](const auto& application) { return application.windows.isEmpty(); });
        return applications;
    }
    if (!background || (missing && missing->isEmpty()))
        return applications;
    QSet<QString> known;
    for (const RunningApplication& application : std::as_const(applications))
        known.insert(application.bundleIdentifier.value_or(QString()));
    const QList<RunningApplication> candidates = background(missing);
    for (const RunningApplication& candidate : candidates) {
        if (!known.contains(candidate.bundleIdentifier.value_or(QString())))
            applications.append(candidate);
    }
    return applications;
}

} // namespace trovell
