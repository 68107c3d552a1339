#include "model/WorkspaceItemType.h"

namespace trovell {

const QList<WorkspaceItemType>& allWorkspaceItemTypes()
{
    static const QList<WorkspaceItemType> types{
        WorkspaceItemType::application,
        WorkspaceItemType::folder,
        WorkspaceItemType::file,
        WorkspaceItemType::webLink,
    };
    return types;
}

QString rawValue(WorkspaceItemType type)
{
    switch (type) {
    case WorkspaceItemType::application:
        return QStringLiteral("application");
    case WorkspaceItemType::folder:
        return QStringLiteral("folder");
    case WorkspaceItemType::file:
        return QStringLiteral("file");
    case WorkspaceItemType::webLink:
        return QStringLiteral("webLink");
    }
    Q_UNREACHABLE();
}

WorkspaceItemType workspaceItemType(const QString& text)
{
    for (const WorkspaceItemType type : allWorkspaceItemTypes()) {
        if (rawValue(type) == text)
            return type;
    }
    return WorkspaceItemType::file;
}

} // namespace trovell
