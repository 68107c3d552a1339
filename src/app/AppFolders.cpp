#include "app/AppFolders.h"

#include <QStandardPaths>

namespace trovell {

QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/trovell");
}

QString preferencesFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/trovell/preferences.json");
}

} // namespace trovell
