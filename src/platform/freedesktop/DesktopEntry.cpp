// SPDX-License-Identifier: MIT

#include "platform/freedesktop/DesktopEntry.h"

#include "platform/freedesktop/FilePath.h"
#include "platform/freedesktop/GObjectPointer.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>

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

DesktopEntry makeEntry(const QString& id, GDesktopAppInfo* file)
{
    GAppInfo* const application = G_APP_INFO(file);
    DesktopEntry entry;
    entry.id = id;
    entry.name = QString::fromUtf8(g_app_info_get_name(application));
    entry.path = g_desktop_app_info_get_filename(file);
    entry.startupWMClass = QString::fromUtf8(g_desktop_app_info_get_startup_wm_class(file));
    entry.isConcealed = g_desktop_app_info_get_nodisplay(file) != FALSE;
    readProgram(g_app_info_get_commandline(application), entry);
    return entry;
}

/// Those of one folder that are not `known` from an earlier one (Desktop Entry Specification 1.5,
/// section 2). Never opens anything but regular files: a pipe would keep the reader for ever.
void addEntries(const QString& folder, QSet<QString>& known, QList<DesktopEntry>& entries)
{
    QDirIterator files(folder, {u"*.desktop"_s}, QDir::AllEntries | QDir::System | QDir::Hidden,
                       QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString name = path.mid(folder.size() + 1);
        const QString id = desktopEntryId(QString(name).replace(u'/', u'-'));
        if (known.contains(id))
            continue;
        known.insert(id);
        if (!files.fileInfo().isFile())
            continue;
        const GObjectPointer<GDesktopAppInfo> file(
            g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
        if (file && !g_desktop_app_info_get_is_hidden(file.get()))
            entries.append(makeEntry(id, file.get()));
    }
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
    // GIO tells of changes after it has looked into the folders itself.
    const GObjectPointer<GDesktopAppInfo> none(g_desktop_app_info_new("-.desktop"));
    QSet<QString> known;
    QList<DesktopEntry> entries;
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation))
        addEntries(folder, known, entries);
    std::sort(entries.begin(), entries.end(), [](const DesktopEntry& a, const DesktopEntry& b) {
        return std::tie(a.isConcealed, a.id) < std::tie(b.isConcealed, b.id);
    });
    return entries;
}

} // namespace trovell
