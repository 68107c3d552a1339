// SPDX-License-Identifier: MIT

#include "preferences/AppConfiguration.h"

#include "services/update/BuiltInUpdateSource.h"

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

AppConfiguration makeConfiguration()
{
    return {
        .bundleIdentifier = u"app.trovell.Trovell"_s,
        .motto = u"Your Mac, ready in one click."_key,
        .supportURL = pageURL(u"https://trovell.app/support"_s),
        .privacyURL = pageURL(u"https://trovell.app/privacy"_s),
        .termsURL = pageURL(u"https://trovell.app/terms"_s),
        .sparkleAppcastURL = builtInFeedAddress(),
        .sparklePublicKey = builtInPublicKey(),
        .shortVersion = QString::fromUtf8(TROVELL_VERSION),
        .buildNumber = QString::fromUtf8(TROVELL_BUILD_NUMBER),
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
    return u"%1 (%2)"_s.arg(configuration.shortVersion.value_or(u"1.0"_s),
                            configuration.buildNumber.value_or(u"1"_s));
}

QUrl pageURL(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && !url.isEmpty() ? url : QUrl(u"file:///"_s);
}

} // namespace trovell
