// SPDX-License-Identifier: MIT

#include "model/StoreError.h"

namespace trovell {

using namespace Qt::StringLiterals;

QString description(StoreError error)
{
    switch (error) {
    case StoreError::inaccessible:
        return u"The workspace file or its folder could not be opened."_s;
    case StoreError::readOnly:
        return u"The workspace file or its folder is read-only."_s;
    case StoreError::inUse:
        return u"The workspaces are in use by another running copy of Trovell."_s;
    case StoreError::notAStore:
        return u"The workspace file was not made by Trovell."_s;
    case StoreError::unknownSchema:
        return u"The workspace file was made by a version of Trovell that this "
               "version does not know."_s;
    case StoreError::damaged:
        return u"The workspace file is damaged."_s;
    case StoreError::diskFull:
        return u"There is not enough space left on the disk."_s;
    case StoreError::diskFailure:
        return u"The disk failed to read or write the workspaces."_s;
    case StoreError::duplicateIdentifier:
        return u"An entry with the same identity is already stored."_s;
    case StoreError::outOfMemory:
        return u"There is not enough memory left."_s;
    }
    Q_UNREACHABLE();
}

QString storeOpeningFailureText(StoreError error)
{
    return u"Trovell could not open its local workspace store: "_s + description(error);
}

} // namespace trovell
