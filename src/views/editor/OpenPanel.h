// SPDX-License-Identifier: MIT
//
// Choosing applications, folders and files. Main thread.
#pragma once

#include "model/WorkspaceItemType.h"
#include "views/shared/EditingEnvironment.h"

#include <QList>
#include <QUrl>

#include <functional>
#include <optional>

class QWidget;

namespace trovell {

struct OpenPanelRequest {
    /// Not a web link.
    WorkspaceItemType type = WorkspaceItemType::file;
    bool allowsMultiple = false;
    /// Where something is chosen that is neither added nor located again.
    std::optional<TextKey<>> title = {};
};

using ChosenURLs = std::function<void(const QList<QUrl>&)>;

/// Shows a panel over the window of `over` and returns at once. Calls `chosen` later, at most once,
/// with what was chosen in the panel's order, and not at all when the panel is cancelled or
/// `over` is gone.
using OpenPanel =
    std::function<void(const OpenPanelRequest&, QWidget* over, const ChosenURLs& chosen)>;

[[nodiscard]] QString panelTitle(const Localization& words, const OpenPanelRequest& request);

/// The list of the installed applications, or the desktop's file dialog.
[[nodiscard]] OpenPanel desktopOpenPanel(const EditingEnvironment& environment);

/// The file dialog alone, for applications as well.
void openFilePanel(const Localization& words, const OpenPanelRequest& request, QWidget* over,
                   const ChosenURLs& chosen);

} // namespace trovell
