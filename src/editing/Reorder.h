// SPDX-License-Identifier: MIT
//
// The one rule by which lists are reordered by dragging, and what is dragged.
#pragma once

#include <QList>
#include <QUuid>

#include <algorithm>

namespace trovell {

/// Puts the element at `source` immediately before the one at `target`, in both directions; so
/// nothing can be dragged behind the last one. False, and nothing moves, when they are the same or
/// one is no index of the list.
template <class Element> bool moveBefore(QList<Element>& list, qsizetype source, qsizetype target)
{
    const auto isIndex = [&list](qsizetype index) { return index >= 0 && index < list.size(); };
    if (source == target || !isIndex(source) || !isIndex(target))
        return false;
    list.move(source, source < target ? target - 1 : target);
    return true;
}

/// What a dragged row carries: its identifier, in capitals and without braces.
[[nodiscard]] inline QString dragPayload(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace trovell
