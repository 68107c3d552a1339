// SPDX-License-Identifier: MIT
//
// Feeds the feed parser with anything, and holds what it accepts against its promises.
#include "services/update/UpdateChoice.h"
#include "services/update/UpdateFeedParser.h"

using namespace Qt::StringLiterals;

using namespace trovell;

namespace {

void require(bool holds)
{
    if (!holds)
        __builtin_trap();
}

void requireSound(const QList<UpdateItem>& items)
{
    require(items.size() <= feedlimits::items);
    for (const UpdateItem& item : items) {
        require(item.lengthBytes > 0 && item.address.isValid() && !item.shortVersion.isEmpty());
        require(item.notes.size() <= feedlimits::tokenBytes && !item.notes.contains(QChar(0)));
        for (const UpdateItem& other : items) {
            require((other.version == item.version) == (&other == &item));
            require((other.version <=> item.version) == (0 <=> (item.version <=> other.version)));
        }
    }
}

void requireNoDowngrade(const QList<UpdateItem>& items)
{
    const auto program = *ReleaseVersion::parse(u"1.5"_s);
    const UpdateChoice choice = chooseUpdate(items, program, program);
    require(choice.item.has_value() == choice.reason.isEmpty());
    if (choice.item)
        require(choice.item->version > program &&
                choice.item->minimumSystemVersion.value_or(program) <= program);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray feed(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto items = parseUpdateFeed(feed)) {
        requireSound(*items);
        requireNoDowngrade(*items);
    } else {
        require(!description(items.error()).isEmpty());
    }
    return 0;
}
