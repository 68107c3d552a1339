// SPDX-License-Identifier: MIT

#include "platform/freedesktop/ApplicationStart.h"

#include "platform/freedesktop/FilePath.h"

#include <QRandomGenerator>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace trovell {

namespace {

using KeyFile = GPointer<GKeyFile, g_key_file_unref>;

/// What a session, the bus or the service manager gave to this program alone.
constexpr const char* ownVariables[] = {
    "DESKTOP_STARTUP_ID",    "XDG_ACTIVATION_TOKEN", "DESKTOP_AUTOSTART_ID", "DBUS_STARTER_ADDRESS",
    "DBUS_STARTER_BUS_TYPE", "NOTIFY_SOCKET",        "LISTEN_FDS",           "LISTEN_PID",
    "LISTEN_FDNAMES",        "INVOCATION_ID",        "JOURNAL_STREAM",       "MANAGERPID",
    "SYSTEMD_EXEC_PID",      "WATCHDOG_PID",         "WATCHDOG_USEC"};

/// Runs in the new process between fork and exec: only async-signal-safe calls.
void makeOwnProcess(gpointer folder)
{
    setsid();
    // The folder that a desktop file names was entered before.
    if (folder && chdir(static_cast<const char*>(folder)) != 0)
        return;
}

/// The characters that names of units may have.
QByteArray unitName(const char* id, GPid process)
{
    QByteArray name = id ? id : "program";
    if (name.endsWith(".desktop"))
        name.chop(8);
    for (char& letter : name) {
        if (!g_ascii_isalnum(letter) && letter != '.' && letter != ':')
            letter = '_';
    }
    return "app-" + name + '-' + QByteArray::number(process) + '-' +
           QByteArray::number(QRandomGenerator::global()->generate(), 16) + ".scope";
}

struct ScopeRequest {
    QByteArray name;
    guint32 process = 0;
};

/// Without such a manager the process stays where it is.
void takeAnswer(GObject* bus, GAsyncResult* result, gpointer)
{
    const GVariantPointer answer(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr));
}

/// The connection stays until the answer is there.
void requestScope(GObject*, GAsyncResult* result, gpointer data)
{
    const std::unique_ptr<ScopeRequest> request(static_cast<ScopeRequest*>(data));
    const GObjectPointer<GDBusConnection> bus(g_bus_get_finish(result, nullptr));
    if (!bus)
        return;
    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE("a(sv)"));
    g_variant_builder_add(&properties, "(sv)", "PIDs",
                          g_variant_new_fixed_array(G_VARIANT_TYPE_UINT32, &request->process, 1,
                                                    sizeof(request->process)));
    g_dbus_connection_call(bus.get(), "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
                           "org.freedesktop.systemd1.Manager", "StartTransientUnit",
                           g_variant_new("(ssa(sv)a(sa(sv)))", request->name.constData(), "fail",
                                         &properties, nullptr),
                           nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, &takeAnswer,
                           nullptr);
}

/// Asks the user's service manager, if there is one, to keep the process by itself.
void moveToOwnScope(GDesktopAppInfo* application, GPid process, gpointer)
{
    const QByteArray name = unitName(g_app_info_get_id(G_APP_INFO(application)), process);
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, &requestScope,
              new ScopeRequest{name, static_cast<guint32>(process)});
}

/// In `folder`, or, without one, in the application's own.
bool start(GDesktopAppInfo* application, const char* uri, const char* folder)
{
    GList link = {const_cast<char*>(uri), nullptr, nullptr};
    const auto context = makeLaunchContext();
    // Without G_SPAWN_DO_NOT_REAP_CHILD GLib forks twice, so that no zombie can be left.
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                G_SPAWN_STDERR_TO_DEV_NULL);
    return g_desktop_app_info_launch_uris_as_manager(
               application, uri ? &link : nullptr, context.get(), flags, makeOwnProcess,
               const_cast<char*>(folder), moveToOwnScope, nullptr, nullptr) != FALSE;
}

} // namespace

GObjectPointer<GAppLaunchContext> makeLaunchContext()
{
    GObjectPointer<GAppLaunchContext> context(g_app_launch_context_new());
    for (const char* variable : ownVariables)
        g_app_launch_context_unsetenv(context.get(), variable);
    return context;
}

bool startApplication(GDesktopAppInfo* application, const char* uri)
{
    const GPointer<char> folder(g_desktop_app_info_get_string(application, "Path"));
    return start(application, uri, folder && *folder ? nullptr : g_get_home_dir());
}

DesktopFile withStart(DesktopFile application, const ApplicationStart& start)
{
    if (!application || (!start.arguments && !start.workingFolder))
        return application;
    const KeyFile file(g_key_file_new());
    const char* path = g_desktop_app_info_get_filename(application.get());
    if (!path || !g_key_file_load_from_file(file.get(), path, G_KEY_FILE_NONE, nullptr))
        return {};
    const auto text = [&](const char* key) {
        const GPointer<char> value(
            g_key_file_get_string(file.get(), G_KEY_FILE_DESKTOP_GROUP, key, nullptr));
        return QByteArray(value.get());
    };
    const auto setText = [&](const char* key, const QByteArray& value) {
        g_key_file_set_string(file.get(), G_KEY_FILE_DESKTOP_GROUP, key, value.constData());
    };
    // A percent sign would begin a field code (Desktop Entry Specification 1.5, section 7).
    if (start.arguments)
        setText("Exec", text("Exec") + ' ' + start.arguments->toUtf8().replace('%', "%%"));
    if (start.workingFolder)
        setText("Path", start.workingFolder->toUtf8());
    // Over the bus there is no way to hand arguments over.
    g_key_file_set_boolean(file.get(), G_KEY_FILE_DESKTOP_GROUP, "DBusActivatable", FALSE);
    return DesktopFile(g_desktop_app_info_new_from_keyfile(file.get()));
}

bool startProgram(const QByteArray& path, const ApplicationStart& wished)
{
    struct stat status{};
    if (::stat(path.constData(), &status) != 0 || !S_ISREG(status.st_mode) ||
        ::access(path.constData(), X_OK) != 0)
        return false;
    const GPointer<char> quoted(g_shell_quote(path.constData()));
    const QByteArray command =
        QByteArray(quoted.get()) + ' ' + wished.arguments.value_or(QString()).toUtf8();
    const GObjectPointer<GAppInfo> program(g_app_info_create_from_commandline(
        QByteArray(command).replace('%', "%%").constData(), fileName(path).constData(),
        G_APP_INFO_CREATE_NONE, nullptr));
    const QByteArray folder = wished.workingFolder.value_or(QString()).toUtf8();
    return program && start(G_DESKTOP_APP_INFO(program.get()), nullptr,
                            folder.isEmpty() ? g_get_home_dir() : folder.constData());
}

} // namespace trovell
