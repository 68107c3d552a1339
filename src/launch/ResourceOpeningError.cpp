// SPDX-License-Identifier: MIT

#include "launch/ResourceOpeningError.h"

namespace trovell {

using namespace Qt::StringLiterals;

QString description(const ResourceOpeningError& error)
{
    switch (error.kind) {
    case ResourceOpeningError::Kind::missing:
        return error.subject + u" could not be found. Use Locate Again to update it."_s;
    case ResourceOpeningError::Kind::cannotOpen:
        return u"macOS could not open "_s + error.subject + u"."_s;
    }
    Q_UNREACHABLE();
}

} // namespace trovell
