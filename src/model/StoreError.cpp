#include "model/StoreError.h"

namespace trovell {

QString description(StoreError error)
{
    switch (error) {
    case StoreError::inaccessible:
        return QStringLiteral("The workspace file or its folder could not be opened.");
    case StoreError::readOnly:
        return QStringLiteral("The workspace file or its folder is read-only.");
    case StoreError::inUse:
        return QStringLiteral("The workspaces are in use by another running copy of Trovell.");
    case StoreError::notAStore:
        return QStringLiteral("The workspace file was not made by Trovell.");
    case StoreError::unknownSchema:
        return QStringLiteral("The workspace file was made by a version of Trovell that this "
                              "version does not know.");
    case StoreError::damaged:
        return QStringLiteral("The workspace file is damaged.");
    case StoreError::diskFull:
        return QStringLiteral("There is not enough space left on the disk.");
    case StoreError::diskFailure:
        return QStringLiteral("The disk failed to read or write the workspaces.");
    case StoreError::duplicateIdentifier:
        return QStringLiteral("An entry with the same identity is already stored.");
    case StoreError::outOfMemory:
        return QStringLiteral("There is not enough memory left.");
    }
    Q_UNREACHABLE();
}

QString storeOpeningFailureText(StoreError error)
{
    return QStringLiteral("Trovell could not open its local workspace store: ") +
           description(error);
}

} // namespace trovell
