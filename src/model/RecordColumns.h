// SPDX-License-Identifier: MIT
//
// Which column holds which attribute, in the order of the current schema's tables. Any thread.
#pragma once

#include "model/TrovellWorkspace.h"
#include "model/WindowPlacement.h"
#include "model/WorkspaceItem.h"

#include <tuple>

namespace trovell {

template <class Values, class T> struct Column {
    const char* name;
    T Values::* attribute;
};

template <class Values> struct Table;

/// `columns` begins with the id.
template <> struct Table<WorkspaceValues> {
    using V = WorkspaceValues;
    static constexpr const char* name = "TrovellWorkspace";
    static constexpr bool hasOwner = false;
    static constexpr std::tuple columns{
        Column{"id", &V::id},
        Column{"name", &V::name},
        Column{"symbolName", &V::symbolName},
        Column{"accentIdentifier", &V::accentIdentifier},
        Column{"sortOrder", &V::sortOrder},
        Column{"createdAt", &V::createdAt},
        Column{"updatedAt", &V::updatedAt},
        Column{"lastLaunchedAt", &V::lastLaunchedAt},
        Column{"shortcutData", &V::shortcutData},
    };
};

/// Rows with an owner have its id in the column `workspace`, after all others.
template <> struct Table<WorkspaceItemValues> {
    using V = WorkspaceItemValues;
    static constexpr const char* name = "WorkspaceItem";
    static constexpr bool hasOwner = true;
    static constexpr std::tuple columns{
        Column{"id", &V::id},
        Column{"typeRawValue", &V::typeRawValue},
        Column{"displayName", &V::displayName},
        Column{"sortOrder", &V::sortOrder},
        Column{"urlString", &V::urlString},
        Column{"bookmarkData", &V::bookmarkData},
        Column{"bundleIdentifier", &V::bundleIdentifier},
        Column{"applicationPath", &V::applicationPath},
        Column{"isEnabled", &V::isEnabled},
        Column{"createdAt", &V::createdAt},
        Column{"arguments", &V::arguments},
        Column{"workingFolder", &V::workingFolder},
        Column{"openWith", &V::openWith},
    };
};

template <> struct Table<WindowPlacementValues> {
    using V = WindowPlacementValues;
    static constexpr const char* name = "WindowPlacement";
    static constexpr bool hasOwner = true;
    static constexpr std::tuple columns{
        Column{"id", &V::id},
        Column{"bundleIdentifier", &V::bundleIdentifier},
        Column{"applicationName", &V::applicationName},
        Column{"windowTitleHint", &V::windowTitleHint},
        Column{"windowRole", &V::windowRole},
        Column{"windowSubrole", &V::windowSubrole},
        Column{"windowIndexHint", &V::windowIndexHint},
        Column{"normalizedX", &V::normalizedX},
        Column{"normalizedY", &V::normalizedY},
        Column{"normalizedWidth", &V::normalizedWidth},
        Column{"normalizedHeight", &V::normalizedHeight},
        Column{"absoluteX", &V::absoluteX},
        Column{"absoluteY", &V::absoluteY},
        Column{"absoluteWidth", &V::absoluteWidth},
        Column{"absoluteHeight", &V::absoluteHeight},
        Column{"displayFingerprintData", &V::displayFingerprintData},
        Column{"isEnabled", &V::isEnabled},
        Column{"virtualDesktopIndex", &V::virtualDesktopIndex},
        Column{"virtualDesktopName", &V::virtualDesktopName},
        Column{"isOnAllDesktops", &V::isOnAllDesktops},
        Column{"windowStates", &V::windowStates},
        Column{"stackingIndex", &V::stackingIndex},
        Column{"restoresDesktop", &V::restoresDesktop},
        Column{"restoresState", &V::restoresState},
        Column{"opensMissingWindow", &V::opensMissingWindow},
    };
};

/// Calls `work(column)` for each column of the table.
template <class Values, class Work> void forEachColumn(Work work)
{
    std::apply([&](const auto&... column) { (work(column), ...); }, Table<Values>::columns);
}

} // namespace trovell
