#include "windows/WindowServiceError.h"

namespace trovell {

QString description(WindowServiceError error)
{
    switch (error) {
    case WindowServiceError::accessibilityPermissionMissing:
        return QStringLiteral("Allow Accessibility access before capturing or restoring windows.");
    case WindowServiceError::noWindows:
        return QStringLiteral("No ordinary application windows were available to capture.");
    }
    Q_UNREACHABLE();
}

} // namespace trovell
