// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>

namespace trovell {

class VisualStyle;

/// A symbol as an icon for menus, in the colours that texts have there: at rest, disabled, and on
/// the highlight. For menus that another process draws, at any size it asks for. `visual` outlives
/// the icon; the colours are those of the moment when it is drawn. Main thread.
[[nodiscard]] QIcon symbolIcon(const VisualStyle& visual, const QString& symbolName);

} // namespace trovell
