// SPDX-License-Identifier: MIT

#include "services/update/UpdateChoice.h"

#include <algorithm>

namespace trovell {

namespace {

std::optional<UpdateItem> newest(const QList<UpdateItem>& items)
{
    const auto found = std::max_element(items.begin(), items.end(),
                                        [](const UpdateItem& left, const UpdateItem& right) {
                                            return left.version < right.version;
                                        });
    return found == items.end() ? std::nullopt : std::optional(*found);
}

Message reasonForNone(const std::optional<UpdateItem>& newestOfAll,
                      const ReleaseVersion& programVersion)
{
    if (!newestOfAll || newestOfAll->version == programVersion)
        return u"You have the newest version of Trovell."_key;
    if (newestOfAll->version > programVersion)
        return {u"Trovell %@ needs a newer system than this one. You have the newest version "
                u"that runs here."_key,
                newestOfAll->shortVersion};
    return {u"You have a newer version of Trovell than the newest one offered, which is %@."_key,
            newestOfAll->shortVersion};
}

} // namespace

UpdateChoice chooseUpdate(const QList<UpdateItem>& items, const ReleaseVersion& programVersion,
                          const std::optional<ReleaseVersion>& systemVersion)
{
    QList<UpdateItem> suitable;
    std::copy_if(items.begin(), items.end(), std::back_inserter(suitable),
                 [&systemVersion](const UpdateItem& item) {
                     return !item.minimumSystemVersion ||
                            (systemVersion && *item.minimumSystemVersion <= *systemVersion);
                 });
    const std::optional<UpdateItem> candidate = newest(suitable);
    if (candidate && candidate->version > programVersion)
        return {candidate, {}};
    return {std::nullopt, reasonForNone(newest(items), programVersion)};
}

} // namespace trovell
