#include "SigningError.h"

namespace trovell {

QString description(SigningError error)
{
    switch (error) {
    case SigningError::keyExists:
        return QStringLiteral("There already is a file of that name. Nothing was changed.");
    case SigningError::keyNotWritable:
        return QStringLiteral("The private key could not be written.");
    case SigningError::keyNotReadable:
        return QStringLiteral("The private key could not be read.");
    case SigningError::keyNotPrivate:
        return QStringLiteral("The private key can be read by others. Set its mode to 0600, or "
                              "better make a new one.");
    case SigningError::keyMalformed:
        return QStringLiteral("The file holds no private key.");
    case SigningError::packageNotReadable:
        return QStringLiteral("The package is empty or could not be read.");
    case SigningError::noRandomness:
        return QStringLiteral("The system has no random numbers to make a key of.");
    }
    Q_UNREACHABLE();
}

} // namespace trovell
