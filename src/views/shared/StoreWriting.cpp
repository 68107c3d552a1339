// SPDX-License-Identifier: MIT

#include "views/shared/StoreWriting.h"

#include "model/StoreContext.h"

namespace trovell {

Expected<void, Message> saveOrRollBack(StoreContext& context)
{
    const auto saved = context.save();
    if (saved)
        return {};
    context.rollback();
    return Unexpected<Message>(description(saved.error()));
}

} // namespace trovell
