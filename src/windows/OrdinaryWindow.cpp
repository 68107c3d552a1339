// SPDX-License-Identifier: MIT

#include "windows/OrdinaryWindow.h"

namespace trovell {

bool isOrdinaryWindow(const DesktopWindow& window)
{
    return window.kind == WindowKind::standard && !window.isUnlisted &&
           !(window.states & WindowState::minimized) && window.frame &&
           window.frame->width() > 80 && window.frame->height() > 60;
}

} // namespace trovell
