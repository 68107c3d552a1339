#include "model/Record.h"

#include "model/TrovellWorkspace.h"

namespace trovell {

void Record::noteChange()
{
    // The store context listens to the owner: it must know of the change before any observer acts
    // on it.
    if (m_owner)
        Q_EMIT
    m_owner->contentChanged();
    Q_EMIT
    changed();
}

} // namespace trovell
