#include "launch/ResourceOpeningError.h"

namespace trovell {

QString description(const ResourceOpeningError& error)
{
    switch (error.kind) {
    case ResourceOpeningError::Kind::missing:
        return error.subject + u" could not be found. Use Locate Again to update it."_qs;
    case ResourceOpeningError::Kind::cannotOpen:
        return u"macOS could not open "_qs + error.subject + u"."_qs;
    }
    Q_UNREACHABLE();
}

} // namespace trovell
