// SPDX-License-Identifier: MIT

#include "model/StoreError.h"

namespace trovell {

Message description(StoreError error)
{
    switch (error) {
    case StoreError::inaccessible:
        return u"The workspace file or its folder could not be opened."_key;
    case StoreError::readOnly:
        return u"The workspace file or its folder is read-only."_key;
    case StoreError::inUse:
        return u"The workspaces are in use by another running copy of Trovell."_key;
    case StoreError::notAStore:
        return u"The workspace file was not made by Trovell."_key;
    case StoreError::unknownSchema:
        return u"The workspace file was made by a version of Trovell that this "
               "version does not know."_key;
    case StoreError::damaged:
        return u"The workspace file is damaged."_key;
    case StoreError::diskFull:
        return u"There is not enough space left on the disk."_key;
    case StoreError::diskFailure:
        return u"The disk failed to read or write the workspaces."_key;
    case StoreError::duplicateIdentifier:
        return u"An entry with the same identity is already stored."_key;
    case StoreError::outOfMemory:
        return u"There is not enough memory left."_key;
    }
    Q_UNREACHABLE();
}

Message storeOpeningFailureText(StoreError error)
{
    return {u"Trovell could not open its local workspace store: %@"_key, description(error)};
}

} // namespace trovell
