// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowKind.h"

namespace trovell {

namespace {

/// The outer optional is empty for a type that is not known.
std::optional<std::optional<WindowKind>> kindOfType(quint32 type, const X11Atoms& atoms)
{
    if (type == atoms.typeNormal)
        return WindowKind::standard;
    if (type == atoms.typeDialog)
        return WindowKind::dialog;
    if (type == atoms.typeUtility || type == atoms.typeToolbar)
        return WindowKind::utility;
    if (type == atoms.typeSplash || type == atoms.typeNotification)
        return WindowKind::notification;
    for (const quint32 none :
         {atoms.typeDesktop, atoms.typeDock, atoms.typeMenu, atoms.typeDropdownMenu,
          atoms.typePopupMenu, atoms.typeTooltip, atoms.typeCombo, atoms.typeDragAndDrop}) {
        if (type == none)
            return std::optional<WindowKind>();
    }
    return std::nullopt;
}

} // namespace

std::optional<WindowKind> windowKind(const QList<quint32>& types, bool isTransient,
                                     const X11Atoms& atoms)
{
    for (const quint32 type : types) {
        if (const auto kind = kindOfType(type, atoms))
            return *kind;
    }
    return isTransient ? WindowKind::dialog : WindowKind::standard;
}

} // namespace trovell
