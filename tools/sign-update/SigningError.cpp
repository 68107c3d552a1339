// SPDX-License-Identifier: MIT

#include "SigningError.h"

namespace trovell {

using namespace Qt::StringLiterals;

QString description(SigningError error)
{
    switch (error) {
    case SigningError::keyExists:
        return u"There already is a file of that name. Nothing was changed."_s;
    case SigningError::keyNotWritable:
        return u"The private key could not be written."_s;
    case SigningError::keyNotReadable:
        return u"The private key could not be read."_s;
    case SigningError::keyNotPrivate:
        return u"The private key can be read by others. Set its mode to 0600, or "
               "better make a new one."_s;
    case SigningError::keyMalformed:
        return u"The file holds no private key."_s;
    case SigningError::packageNotReadable:
        return u"The package is empty or could not be read."_s;
    case SigningError::noRandomness:
        return u"The system has no random numbers to make a key of."_s;
    }
    Q_UNREACHABLE();
}

} // namespace trovell
