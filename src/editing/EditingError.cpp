// SPDX-License-Identifier: MIT

#include "editing/EditingError.h"

#include "model/WorkspaceChoices.h"

namespace trovell {

Message description(const EditingError& error)
{
    switch (error.kind) {
    case EditingError::Kind::notStored:
        return description(error.storeError);
    case EditingError::Kind::deletedWhileEditing:
        return u"This workspace was deleted while you were editing it. Nothing was saved."_key;
    case EditingError::Kind::deletedWhileCapturing:
        return u"This workspace was deleted while you were capturing it. Nothing was saved."_key;
    case EditingError::Kind::itemsUnreadable:
        return u"The items of this workspace could not be read. Close the editor and try again."_key;
    case EditingError::Kind::layoutUnreadable:
        return u"The saved layout of this workspace could not be read. Try again later."_key;
    case EditingError::Kind::shortcutInUse:
        return shortcutConflictText();
    case EditingError::Kind::applicationUnavailable:
        return {u"%@ is no longer available. Reopen it and capture again."_key,
                error.applicationName};
    }
    Q_UNREACHABLE();
}

} // namespace trovell
