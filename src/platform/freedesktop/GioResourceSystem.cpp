// SPDX-License-Identifier: MIT

#include "platform/freedesktop/GioResourceSystem.h"

#include "platform/freedesktop/DesktopEntry.h"
#include "platform/freedesktop/FileBookmark.h"
#include "platform/freedesktop/FilePath.h"
#include "platform/freedesktop/GObjectPointer.h"

#include <QStandardPaths>

#include <gio/gdesktopappinfo.h>

#include <unistd.h>

namespace trovell {

namespace {

using DesktopFile = GObjectPointer<GDesktopAppInfo>;

/// None when the URL names no desktop file of an application.
DesktopFile desktopFile(const QUrl& url)
{
    const auto path = localPath(url);
    return DesktopFile(path ? g_desktop_app_info_new_from_filename(path->constData()) : nullptr);
}

/// The id of a desktop file by the Desktop Menu rules: its path below the application folder that
/// it lies in, with dashes for the slashes; elsewhere its name.
QString applicationId(const QUrl& url)
{
    const QString path = url.toLocalFile();
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)) {
        if (path.startsWith(folder + u'/'))
            return desktopEntryId(path.mid(folder.size() + 1).replace(u'/', u'-'));
    }
    return desktopEntryId(url.fileName());
}

/// Runs in the new process between fork and exec: only async-signal-safe calls.
void startOwnSession(gpointer)
{
    setsid();
}

GObjectPointer<GAppLaunchContext> makeLaunchContext()
{
    GObjectPointer<GAppLaunchContext> context(g_app_launch_context_new());
    // Tokens of this program's own start, if it still has them, belong to no other program.
    g_app_launch_context_unsetenv(context.get(), "DESKTOP_STARTUP_ID");
    g_app_launch_context_unsetenv(context.get(), "XDG_ACTIVATION_TOKEN");
    return context;
}

/// `uri` may be null. False when the program could not be started.
bool launch(GDesktopAppInfo* application, const char* uri)
{
    GList link = {const_cast<char*>(uri), nullptr, nullptr};
    const auto context = makeLaunchContext();
    // Without G_SPAWN_DO_NOT_REAP_CHILD GLib forks twice, so that no zombie can be left.
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                G_SPAWN_STDERR_TO_DEV_NULL);
    return g_desktop_app_info_launch_uris_as_manager(application, uri ? &link : nullptr,
                                                     context.get(), flags, startOwnSession, nullptr,
                                                     nullptr, nullptr, nullptr) != FALSE;
}

/// As g_app_info_launch_default_for_uri looks it up.
GObjectPointer<GAppInfo> defaultApplication(const char* uri)
{
    const GPointer<char> scheme(g_uri_parse_scheme(uri));
    GObjectPointer<GAppInfo> application(
        scheme ? g_app_info_get_default_for_uri_scheme(scheme.get()) : nullptr);
    if (application)
        return application;
    const GObjectPointer<GFile> file(g_file_new_for_uri(uri));
    return GObjectPointer<GAppInfo>(g_file_query_default_handler(file.get(), nullptr, nullptr));
}

} // namespace

std::optional<QByteArray> GioResourceSystem::createBookmark(const QUrl& url) const
{
    return createFileBookmark(url);
}

std::optional<ResolvedBookmark> GioResourceSystem::resolveBookmark(const QByteArray& bookmark) const
{
    return resolveFileBookmark(bookmark, standardSearchScope());
}

std::optional<QUrl> GioResourceSystem::applicationURL(const QString& bundleIdentifier) const
{
    // GIO would take it for a path below an application folder.
    if (bundleIdentifier.isEmpty() || bundleIdentifier.contains(u'/'))
        return {};
    const QByteArray id = bundleIdentifier.toUtf8() + ".desktop";
    const DesktopFile application(g_desktop_app_info_new(id.constData()));
    const char* path = application ? g_desktop_app_info_get_filename(application.get()) : nullptr;
    return path ? std::optional(fileURL(path)) : std::nullopt;
}

std::optional<ApplicationDescription> GioResourceSystem::describeApplication(const QUrl& url) const
{
    const DesktopFile application = desktopFile(url);
    if (!application)
        return {};
    const GPointer<char> icon(g_desktop_app_info_get_string(application.get(), "Icon"));
    return ApplicationDescription{
        .bundleIdentifier = applicationId(url),
        .name = QString::fromUtf8(g_app_info_get_name(G_APP_INFO(application.get()))),
        .icon = QString::fromUtf8(icon.get())};
}

QList<InstalledApplication> GioResourceSystem::installedApplications() const
{
    QList<InstalledApplication> applications;
    const QList<DesktopEntry> entries = loadDesktopEntries();
    for (const DesktopEntry& entry : entries) {
        if (entry.isConcealed)
            continue;
        const QUrl url = fileURL(entry.path);
        // One that went away since is left out.
        if (const auto application = describeApplication(url))
            applications.append({url, *application});
    }
    return applications;
}

bool GioResourceSystem::openApplication(const QUrl& url)
{
    const DesktopFile application = desktopFile(url);
    if (!application || g_desktop_app_info_get_is_hidden(application.get()))
        return false;
    return launch(application.get(), nullptr);
}

bool GioResourceSystem::openResource(const QUrl& url)
{
    if (!url.isValid() || url.isRelative())
        return false;
    const QByteArray uri = url.toEncoded();
    const auto application = defaultApplication(uri.constData());
    if (G_IS_DESKTOP_APP_INFO(application.get()))
        return launch(G_DESKTOP_APP_INFO(application.get()), uri.constData());
    // Inside a sandbox no applications are seen, but GIO can ask the desktop's portal.
    return g_app_info_launch_default_for_uri(uri.constData(), nullptr, nullptr) != FALSE;
}

} // namespace trovell
