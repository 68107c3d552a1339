#pragma once

namespace trovell {

/// Registers how the self-painted classes of this folder present themselves to assistive tools.
/// Classes derived from a Qt control need nothing: they are that control. Harmless when repeated.
void installAccessibleParts();

} // namespace trovell
