// SPDX-License-Identifier: MIT

#include "platform/freedesktop/GioResourceSystem.h"

#include "platform/freedesktop/ApplicationStart.h"
#include "platform/freedesktop/DesktopEntry.h"
#include "platform/freedesktop/FileBookmark.h"
#include "platform/freedesktop/FilePath.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace trovell {

namespace {

/// None when the URL names no desktop file of an application.
DesktopFile desktopFile(const QUrl& url)
{
    const auto path = localPath(url);
    // Opening a pipe would wait for its other end.
    const bool isFile = path && QFileInfo(QFile::decodeName(*path)).isFile();
    return DesktopFile(isFile ? g_desktop_app_info_new_from_filename(path->constData()) : nullptr);
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

/// None when it is not installed.
DesktopFile installedApplication(const QString& bundleIdentifier)
{
    // GIO would take it for a path below an application folder.
    if (bundleIdentifier.isEmpty() || bundleIdentifier.contains(u'/'))
        return {};
    const QByteArray id = bundleIdentifier.toUtf8() + ".desktop";
    const QString path =
        QStandardPaths::locate(QStandardPaths::ApplicationsLocation, QString::fromUtf8(id));
    if (!path.isEmpty() && !QFileInfo(path).isFile())
        return {};
    return DesktopFile(g_desktop_app_info_new(id.constData()));
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
    const DesktopFile application = installedApplication(bundleIdentifier);
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

bool GioResourceSystem::openApplication(const QUrl& url, const ApplicationStart& start)
{
    const auto path = localPath(url);
    DesktopFile application = desktopFile(url);
    if (!application && path && !path->endsWith(".desktop"))
        return startProgram(*path, start);
    if (!application || g_desktop_app_info_get_is_hidden(application.get()))
        return false;
    application = withStart(std::move(application), start);
    return application && startApplication(application.get(), nullptr);
}

bool GioResourceSystem::openResource(const QUrl& url, const QString& openWith)
{
    if (!url.isValid() || url.isRelative())
        return false;
    const QByteArray uri = url.toEncoded();
    const DesktopFile chosen = installedApplication(openWith);
    if (chosen && startApplication(chosen.get(), uri.constData()))
        return true;
    const auto application = defaultApplication(uri.constData());
    if (G_IS_DESKTOP_APP_INFO(application.get()))
        return startApplication(G_DESKTOP_APP_INFO(application.get()), uri.constData());
    // Inside a sandbox no applications are seen, but GIO can ask the desktop's portal.
    return g_app_info_launch_default_for_uri(uri.constData(), nullptr, nullptr) != FALSE;
}

bool GioResourceSystem::openNewWindow(const QString& bundleIdentifier)
{
    const DesktopFile application = installedApplication(bundleIdentifier);
    if (!application)
        return false;
    const char* const* actions = g_desktop_app_info_list_actions(application.get());
    for (const char* name : {"new-window", "NewWindow", "new_window"}) {
        if (!g_strv_contains(actions, name))
            continue;
        const auto context = makeLaunchContext();
        g_desktop_app_info_launch_action(application.get(), name, context.get());
        return true;
    }
    for (const char* key : {"SingleMainWindow", "X-GNOME-SingleWindow"}) {
        if (g_desktop_app_info_get_boolean(application.get(), key))
            return false;
    }
    return startApplication(application.get(), nullptr);
}

} // namespace trovell
