// SPDX-License-Identifier: MIT

#include "model/WorkspaceItemType.h"

namespace trovell {

using namespace Qt::StringLiterals;

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
        return u"application"_s;
    case WorkspaceItemType::folder:
        return u"folder"_s;
    case WorkspaceItemType::file:
        return u"file"_s;
    case WorkspaceItemType::webLink:
        return u"webLink"_s;
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
