// SPDX-License-Identifier: MIT

#include "model/Record.h"

#include "model/TrovellWorkspace.h"

namespace trovell {

void Record::noteChange()
{
    if (m_owner)
        m_owner->noteContentChange();
    Q_EMIT changed();
}

} // namespace trovell
