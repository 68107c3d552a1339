// SPDX-License-Identifier: MIT

#include "windows/WindowServiceError.h"

namespace trovell {

using namespace Qt::StringLiterals;

QString description(WindowServiceError error)
{
    switch (error) {
    case WindowServiceError::accessibilityPermissionMissing:
        return u"Allow Accessibility access before capturing or restoring windows."_s;
    case WindowServiceError::noWindows:
        return u"No ordinary application windows were available to capture."_s;
    }
    Q_UNREACHABLE();
}

} // namespace trovell
