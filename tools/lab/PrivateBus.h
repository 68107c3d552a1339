// SPDX-License-Identifier: MIT
//
// A session bus that starts only the services that a test installs, none of the machine's.
#pragma once

#include "lab/Files.h"

namespace trovell::lab {

/// Writes the configuration of a dbus-daemon that listens at a path and knows the services in one
/// folder. Returns the argument that makes it use that.
inline QString privateBus(const QString& file, const QString& socket, const QString& services)
{
    using namespace Qt::StringLiterals;
    const QString configuration = uR"(<busconfig>
        <type>session</type><listen>unix:path=%1</listen><servicedir>%2</servicedir>
        <policy context="default">
            <allow send_destination="*"/><allow eavesdrop="true"/><allow own="*"/>
        </policy></busconfig>)"_s;
    return u"--config-file="_s + writeFile(file, configuration.arg(socket, services).toUtf8());
}

} // namespace trovell::lab
