// SPDX-License-Identifier: MIT

#include "windows/WindowServiceError.h"

namespace trovell {

Message description(WindowServiceError error)
{
    switch (error) {
    case WindowServiceError::accessibilityPermissionMissing:
        return u"Allow Accessibility access before capturing or restoring windows."_key;
    case WindowServiceError::noWindows:
        return u"No ordinary application windows were available to capture."_key;
    }
    Q_UNREACHABLE();
}

} // namespace trovell
