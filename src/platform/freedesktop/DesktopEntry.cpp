// SPDX-License-Identifier: MIT

#include "platform/freedesktop/DesktopEntry.h"

#include "platform/freedesktop/FilePath.h"
#include "platform/freedesktop/GObjectPointer.h"

#include <QRegularExpression>

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <tuple>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

using Arguments = GPointer<char*, g_strfreev>;

/// Interpreters and starters, with or without a version ("python3.11").
bool runsAnyProgram(const QByteArray& program)
{
    static const QRegularExpression pattern(
        u"^(?:(?:python|perl|ruby|lua|php|node|nodejs|electron|mono|wine)[0-9.]*"
        "(?:-preloader|-stable)?|sh|ash|bash|dash|zsh|fish|env|java|javaw|dotnet|gjs|gjs-console|"
        "flatpak|bwrap|snap)$"_s);
    return pattern.match(QString::fromUtf8(program)).hasMatch();
}

QByteArray resolvedProgram(const char* program)
{
    const GPointer<char> path(g_find_program_in_path(program));
    std::error_code error;
    const auto canonical = std::filesystem::canonical(path ? path.get() : "", error);
    return QByteArray::fromStdString(canonical.string());
}

void readProgram(const char* commandLine, DesktopEntry& entry)
{
    char** parsed = nullptr;
    if (!commandLine || !g_shell_parse_argv(commandLine, nullptr, &parsed, nullptr))
        return;
    const Arguments arguments(parsed);
    const QByteArray program = resolvedProgram(parsed[0]);
    const QByteArray typedName = fileName(parsed[0]);
    if (runsAnyProgram(typedName) || runsAnyProgram(fileName(program)))
        return;
    entry.program = program;
    const bool isAlias = typedName != fileName(program);
    // Field codes such as %U are no arguments of its own.
    const auto ownArguments = std::count_if(parsed + 1, parsed + g_strv_length(parsed),
                                            [](const char* text) { return text[0] != '%'; });
    entry.programRank = static_cast<int>(ownArguments) * 2 + (isAlias ? 1 : 0);
}

DesktopEntry makeEntry(GDesktopAppInfo* file)
{
    GAppInfo* const application = G_APP_INFO(file);
    DesktopEntry entry;
    entry.id = desktopEntryId(QString::fromUtf8(g_app_info_get_id(application)));
    entry.name = QString::fromUtf8(g_app_info_get_name(application));
    entry.path = g_desktop_app_info_get_filename(file);
    entry.startupWMClass = QString::fromUtf8(g_desktop_app_info_get_startup_wm_class(file));
    entry.isConcealed = g_desktop_app_info_get_nodisplay(file) != FALSE;
    readProgram(g_app_info_get_commandline(application), entry);
    return entry;
}

} // namespace

QString desktopEntryId(const QString& desktopFileName)
{
    const QString suffix = u".desktop"_s;
    return desktopFileName.endsWith(suffix) ? desktopFileName.chopped(suffix.size())
                                            : desktopFileName;
}

QList<DesktopEntry> loadDesktopEntries()
{
    QList<DesktopEntry> entries;
    GList* const applications = g_app_info_get_all();
    for (const GList* link = applications; link; link = link->next) {
        if (G_IS_DESKTOP_APP_INFO(link->data))
            entries.append(makeEntry(G_DESKTOP_APP_INFO(link->data)));
    }
    g_list_free_full(applications, g_object_unref);
    std::sort(entries.begin(), entries.end(), [](const DesktopEntry& a, const DesktopEntry& b) {
        return std::tie(a.isConcealed, a.id) < std::tie(b.isConcealed, b.id);
    });
    return entries;
}

} // namespace trovell
