// SPDX-License-Identifier: MIT

#pragma once

class QString;
class QWidget;

namespace trovell {

/// Registers how the self-painted classes of this folder present themselves to assistive tools.
/// Classes derived from a Qt control need nothing: they are that control. Harmless when repeated.
/// To be called before the application object is made: tools that listen already ask for that one
/// at once.
void installAccessibleParts();

/// Tells assistive tools politely that something has come or changed, in these words, which become
/// the accessible name of `widget`.
void announce(QWidget& widget, const QString& text);

} // namespace trovell
