// SPDX-License-Identifier: MIT

#include "platform/desktop/ApplicationIdentity.h"

#include <QFileInfo>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

QString executableOfProcess(qint32 processIdentifier)
{
    const QString link = u"/proc/%1/exe"_s.arg(processIdentifier);
    return processIdentifier > 0 ? QFileInfo(link).symLinkTarget() : QString();
}

} // namespace

ApplicationIdentity identityWithoutDesktopFile(const WindowIdentity& window)
{
    const QString executable = executableOfProcess(window.processIdentifier);
    const QString program = QFileInfo(executable).fileName();
    ApplicationIdentity identity;
    for (const QString& name : {window.wmClass, window.wmInstance, program}) {
        if (identity.name.isEmpty())
            identity.name = name;
    }
    identity.bundleIdentifier = identity.name;
    if (!executable.isEmpty())
        identity.url = QUrl::fromLocalFile(executable);
    return identity;
}

} // namespace trovell
