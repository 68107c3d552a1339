#include "app/AppAppearance.h"

namespace trovell {

QList<AppAppearance> allAppearances()
{
    return {AppAppearance::light, AppAppearance::system, AppAppearance::dark};
}

QString rawValue(AppAppearance appearance)
{
    switch (appearance) {
    case AppAppearance::light:
        return QStringLiteral("light");
    case AppAppearance::system:
        return QStringLiteral("system");
    case AppAppearance::dark:
        return QStringLiteral("dark");
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

QString displayName(AppAppearance appearance)
{
    switch (appearance) {
    case AppAppearance::light:
        return QStringLiteral("Light");
    case AppAppearance::system:
        return QStringLiteral("System");
    case AppAppearance::dark:
        return QStringLiteral("Dark");
    }
    Q_UNREACHABLE();
}

} // namespace trovell
