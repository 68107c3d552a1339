// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>

class QString;
class QWidget;

namespace trovell {

/// Registers how widgets with a role of their own, buttons with menus and pickers present
/// themselves to assistive tools. Qt's own controls need nothing. Harmless when repeated. To be
/// called before the application object is made: tools that listen already ask for that one at
/// once.
void installAccessibleParts();

/// What a widget that Qt does not know is to assistive tools; in its constructor. A graphic without
/// an accessible name is a decoration, hidden from them.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

/// Tells assistive tools politely that something has come or changed, in these words, which become
/// the accessible name of `widget`.
void announce(QWidget& widget, const QString& text);

} // namespace trovell
