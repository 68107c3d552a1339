// SPDX-License-Identifier: MIT

#include "preferences/AppAppearance.h"

namespace trovell {

using namespace Qt::StringLiterals;

QList<AppAppearance> allAppearances()
{
    return {AppAppearance::light, AppAppearance::system, AppAppearance::dark};
}

QString rawValue(AppAppearance appearance)
{
    switch (appearance) {
    case AppAppearance::light:
        return u"light"_s;
    case AppAppearance::system:
        return u"system"_s;
    case AppAppearance::dark:
        return u"dark"_s;
    }
    Q_UNREACHABLE();
}

std::optional<AppAppearance> appearanceFromRawValue(const QString& text)
{
    const QList<AppAppearance> appearances = allAppearances();
    for (const AppAppearance appearance : appearances) {
        if (rawValue(appearance) == text)
            return appearance;
    }
    return std::nullopt;
}

Message displayName(AppAppearance appearance)
{
    switch (appearance) {
    case AppAppearance::light:
        return u"Light"_key;
    case AppAppearance::system:
        return u"System"_key;
    case AppAppearance::dark:
        return u"Dark"_key;
    }
    Q_UNREACHABLE();
}

} // namespace trovell
