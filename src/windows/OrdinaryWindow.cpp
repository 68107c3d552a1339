#include "windows/OrdinaryWindow.h"

namespace trovell {

std::optional<QRectF> readWindowFrame(const WindowAttributes& window)
{
    if (!window.position || !window.size)
        return std::nullopt;
    return QRectF(*window.position, *window.size);
}

bool isOrdinaryWindow(const WindowAttributes& window)
{
    if (window.isMinimized.value_or(false) || window.role != QStringLiteral("AXWindow"))
        return false;
    const std::optional<QRectF> frame = readWindowFrame(window);
    if (!frame || !(frame->width() > 80) || !(frame->height() > 60))
        return false;
    return window.subrole != QStringLiteral("AXSystemDialog") &&
           window.subrole != QStringLiteral("AXFloatingWindow") &&
           window.subrole != QStringLiteral("AXDialog");
}

} // namespace trovell
