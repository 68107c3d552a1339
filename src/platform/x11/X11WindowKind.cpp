// SPDX-License-Identifier: MIT

#include "platform/x11/X11WindowKind.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// The outer optional is empty for a type that is not known.
std::optional<std::optional<WindowKind>> kindOfType(quint32 type, const X11Atoms& atoms)
{
    if (type == atoms.typeNormal)
        return WindowKind::standard;
    if (type == atoms.typeDialog)
        return WindowKind::dialog;
    if (type == atoms.typeUtility || type == atoms.typeToolbar)
        return WindowKind::floating;
    if (type == atoms.typeSplash || type == atoms.typeNotification)
        return WindowKind::system;
    for (const quint32 none :
         {atoms.typeDesktop, atoms.typeDock, atoms.typeMenu, atoms.typeDropdownMenu,
          atoms.typePopupMenu, atoms.typeTooltip, atoms.typeCombo, atoms.typeDragAndDrop}) {
        if (type == none)
            return std::optional<WindowKind>();
    }
    return std::nullopt;
}

} // namespace

QString roleOfWindows()
{
    return u"AXWindow"_s;
}

QString subroleOf(WindowKind kind)
{
    switch (kind) {
    case WindowKind::standard:
        return u"AXStandardWindow"_s;
    case WindowKind::dialog:
        return u"AXDialog"_s;
    case WindowKind::floating:
        return u"AXFloatingWindow"_s;
    case WindowKind::system:
        return u"AXSystemDialog"_s;
    }
    return {};
}

std::optional<WindowKind> windowKind(const QList<quint32>& types, bool isTransient,
                                     const X11Atoms& atoms)
{
    for (const quint32 type : types) {
        if (const auto kind = kindOfType(type, atoms))
            return *kind;
    }
    return isTransient ? WindowKind::dialog : WindowKind::standard;
}

bool isOrdinaryKind(std::optional<WindowKind> kind)
{
    return kind == WindowKind::standard || kind == WindowKind::dialog;
}

} // namespace trovell
