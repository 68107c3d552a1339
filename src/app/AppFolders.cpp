// SPDX-License-Identifier: MIT

#include "app/AppFolders.h"

#include <QStandardPaths>

namespace trovell {

using namespace Qt::StringLiterals;

QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/trovell"_s;
}

QString preferencesFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/trovell/preferences.json"_s;
}

} // namespace trovell
