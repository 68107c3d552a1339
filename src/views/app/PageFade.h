// SPDX-License-Identifier: MIT
//
// How pages turn into one another. Main thread.
#pragma once

#include <QPixmap>
#include <QWidget>

class QStackedWidget;

namespace trovell {

class VisualStyle;

constexpr int pageFadeMilliseconds = 180;

/// Shows the page at `index`, into which the present one turns in 180 ms; at once while animation
/// is reduced or the pages are not shown. The new page has the keyboard and the mouse from the
/// start. Main thread.
void fadeToPage(QStackedWidget& pages, int index, const VisualStyle& visual);

} // namespace trovell
