// SPDX-License-Identifier: MIT

#include "windows/OrdinaryWindow.h"

namespace trovell {

using namespace Qt::StringLiterals;

std::optional<QRectF> readWindowFrame(const WindowAttributes& window)
{
    if (!window.position || !window.size)
        return std::nullopt;
    return QRectF(*window.position, *window.size);
}

bool isOrdinaryWindow(const WindowAttributes& window)
{
    if (window.isMinimized.value_or(false) || window.role != u"AXWindow"_s)
        return false;
    const std::optional<QRectF> frame = readWindowFrame(window);
    if (!frame || !(frame->width() > 80) || !(frame->height() > 60))
        return false;
    return window.subrole != u"AXSystemDialog"_s && window.subrole != u"AXFloatingWindow"_s &&
           window.subrole != u"AXDialog"_s;
}

} // namespace trovell
