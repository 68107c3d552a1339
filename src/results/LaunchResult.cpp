// SPDX-License-Identifier: MIT

#include "results/LaunchResult.h"

namespace trovell {

using namespace Qt::StringLiterals;

QString rawValue(LaunchResultKind kind)
{
    switch (kind) {
    case LaunchResultKind::launched:
        return u"launched"_s;
    case LaunchResultKind::alreadyRunning:
        return u"alreadyRunning"_s;
    case LaunchResultKind::opened:
        return u"opened"_s;
    case LaunchResultKind::restored:
        return u"restored"_s;
    case LaunchResultKind::skippedMissingResource:
        return u"skippedMissingResource"_s;
    case LaunchResultKind::skippedNoPermission:
        return u"skippedNoPermission"_s;
    case LaunchResultKind::windowNotFound:
        return u"windowNotFound"_s;
    case LaunchResultKind::timedOut:
        return u"timedOut"_s;
    case LaunchResultKind::failed:
        return u"failed"_s;
    }
    Q_UNREACHABLE();
}

LaunchResult makeLaunchResult(const Message& name, LaunchResultKind kind, const Message& detail,
                              const Message& advice)
{
    return {QUuid::createUuid(), name, kind, detail, advice};
}

} // namespace trovell
