// SPDX-License-Identifier: MIT

#include "support/StoreFixture.h"

#include <QUrl>

namespace trovell::test {

TrovellWorkspace& StoreFixture::addWorkspace(const QString& name)
{
    auto workspace = std::make_unique<TrovellWorkspace>(
        WorkspaceValues{.name = name, .sortOrder = context().workspaces().size()});
    TrovellWorkspace& inserted = context().insert(std::move(workspace));
    save();
    return inserted;
}

WorkspaceItem& StoreFixture::addItem(TrovellWorkspace& workspace, WorkspaceItemType type,
                                     const QString& displayName, const QString& urlString)
{
    const QString url = urlString.isEmpty() ? u"file:///nowhere/"_s + displayName : urlString;
    WorkspaceItemValues values{.typeRawValue = rawValue(type),
                               .displayName = displayName,
                               .sortOrder = workspace.itemCount(),
                               .urlString = url};
    if (type == WorkspaceItemType::application) {
        values.bundleIdentifier = displayName;
        values.applicationPath = folder.filePath(displayName + u".desktop"_s);
        values.urlString = QUrl::fromLocalFile(*values.applicationPath).toString();
    }
    WorkspaceItem& added = workspace.appendItem(std::make_unique<WorkspaceItem>(values));
    save();
    return added;
}

WindowPlacement& StoreFixture::addPlacement(TrovellWorkspace& workspace,
                                            const QString& bundleIdentifier)
{
    WindowPlacementValues values{.bundleIdentifier = bundleIdentifier,
                                 .applicationName = bundleIdentifier,
                                 .windowTitleHint = bundleIdentifier + u" window"_s,
                                 .windowRole = u"AXWindow"_s,
                                 .windowSubrole = u"AXStandardWindow"_s,
                                 .normalizedX = 0.25,
                                 .normalizedY = 0.25,
                                 .normalizedWidth = 0.5,
                                 .normalizedHeight = 0.5};
    values.displayFingerprintData = encodeFingerprint(fingerprint);
    auto& added = workspace.appendPlacement(std::make_unique<WindowPlacement>(values));
    save();
    return added;
}

void StoreFixture::save()
{
    if (!context().save())
        qFatal("the fixture's store does not save");
}

} // namespace trovell::test
