#include "launch/LaunchResult.h"

namespace trovell {

QString rawValue(LaunchResultKind kind)
{
    switch (kind) {
    case LaunchResultKind::launched:
        return QStringLiteral("launched");
    case LaunchResultKind::alreadyRunning:
        return QStringLiteral("alreadyRunning");
    case LaunchResultKind::opened:
        return QStringLiteral("opened");
    case LaunchResultKind::restored:
        return QStringLiteral("restored");
    case LaunchResultKind::skippedMissingResource:
        return QStringLiteral("skippedMissingResource");
    case LaunchResultKind::skippedNoPermission:
        return QStringLiteral("skippedNoPermission");
    case LaunchResultKind::windowNotFound:
        return QStringLiteral("windowNotFound");
    case LaunchResultKind::timedOut:
        return QStringLiteral("timedOut");
    case LaunchResultKind::failed:
        return QStringLiteral("failed");
    }
    Q_UNREACHABLE();
}

LaunchResult makeLaunchResult(const QString& name, LaunchResultKind kind,
                              const std::optional<QString>& detail)
{
    return {QUuid::createUuid(), name, kind, detail};
}

} // namespace trovell
