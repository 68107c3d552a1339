// SPDX-License-Identifier: MIT

#include "launch/ResourceOpeningError.h"

namespace trovell {

Message description(const ResourceOpeningError& error)
{
    switch (error.kind) {
    case ResourceOpeningError::Kind::missing:
        return {u"%@ could not be found. Use Locate Again to update it."_key, error.subject};
    case ResourceOpeningError::Kind::cannotOpen:
        return {u"macOS could not open %@."_key, error.subject};
    }
    Q_UNREACHABLE();
}

} // namespace trovell
