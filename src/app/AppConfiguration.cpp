#include "app/AppConfiguration.h"

#include "services/update/BuiltInUpdateSource.h"

namespace trovell {

namespace {

AppConfiguration makeConfiguration()
{
    return {
        .bundleIdentifier = QStringLiteral("app.trovell.Trovell"),
        .motto = QStringLiteral("Your Mac, ready in one click."),
        .supportURL = pageURL(QStringLiteral("https://trovell.app/support")),
        .privacyURL = pageURL(QStringLiteral("https://trovell.app/privacy")),
        .termsURL = pageURL(QStringLiteral("https://trovell.app/terms")),
        .sparkleAppcastURL = builtInFeedAddress(),
        .sparklePublicKey = builtInPublicKey(),
        .shortVersion = QStringLiteral(TROVELL_VERSION),
        .buildNumber = QStringLiteral(TROVELL_BUILD_NUMBER),
    };
}

} // namespace

const AppConfiguration& appConfiguration()
{
    static const AppConfiguration configuration = makeConfiguration();
    return configuration;
}

QString versionText(const AppConfiguration& configuration)
{
    return QStringLiteral("%1 (%2)").arg(configuration.shortVersion.value_or(QStringLiteral("1.0")),
                                         configuration.buildNumber.value_or(QStringLiteral("1")));
}

QUrl pageURL(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && !url.isEmpty() ? url : QUrl(QStringLiteral("file:///"));
}

} // namespace trovell
