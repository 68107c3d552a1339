// SPDX-License-Identifier: MIT

#include "platform/freedesktop/AutostartEntry.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace trovell {

namespace {

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;

/// Without these nothing is started.
constexpr std::array neededKeys{"Type", "Name", "Exec"};

/// How the settings of desktops switch an entry off without removing it.
constexpr std::array switches{"X-GNOME-Autostart-enabled", "X-MATE-Autostart-enabled"};

bool isTrue(const QByteArray& value)
{
    return value == "true" || value == "1";
}

bool isFalse(const QByteArray& value)
{
    return value == "false" || value == "0";
}

} // namespace

AutostartEntry::AutostartEntry() : m_file(g_key_file_new()) {}

std::optional<AutostartEntry> AutostartEntry::read(const QString& path)
{
    // Opening a pipe would wait for its other end.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    AutostartEntry entry;
    const auto flags =
        static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    if (!g_key_file_load_from_data(entry.m_file.get(), bytes.constData(),
                                   static_cast<gsize>(bytes.size()), flags, nullptr) ||
        !g_key_file_has_group(entry.m_file.get(), group))
        return std::nullopt;
    return entry;
}

AutostartEntry AutostartEntry::starting(const AutostartEntry& installed)
{
    AutostartEntry entry;
    entry.makeEffective(installed);
    if (installed.has("Icon"))
        entry.setValue("Icon", installed.value("Icon"));
    return entry;
}

bool AutostartEntry::isEffective() const
{
    return value("Type") == "Application" && !value("Exec").isEmpty() && obstacles().isEmpty();
}

void AutostartEntry::makeEffective(const AutostartEntry& installed)
{
    const QByteArrayList keys = obstacles();
    for (const QByteArray& key : keys)
        g_key_file_remove_key(m_file.get(), group, key.constData(), nullptr);
    if (value("Type") != "Application")
        setValue("Type", "Application");
    for (const char* key : neededKeys) {
        if (value(key).isEmpty() && installed.has(key))
            setValue(key, installed.value(key));
    }
}

bool AutostartEntry::isHidden() const
{
    return isTrue(value("Hidden"));
}

void AutostartEntry::hide()
{
    setValue("Hidden", "true");
}

QByteArray AutostartEntry::bytes() const
{
    gsize size = 0;
    const GPointer<char> data(g_key_file_to_data(m_file.get(), &size, nullptr));
    return {data.get(), static_cast<qsizetype>(size)};
}

bool AutostartEntry::has(const char* key) const
{
    return g_key_file_has_key(m_file.get(), group, key, nullptr) != FALSE;
}

QByteArray AutostartEntry::value(const char* key) const
{
    return QByteArray(GPointer<char>(g_key_file_get_value(m_file.get(), group, key, nullptr)).get())
        .trimmed();
}

void AutostartEntry::setValue(const char* key, const QByteArray& value)
{
    g_key_file_set_value(m_file.get(), group, key, value.constData());
}

QByteArrayList AutostartEntry::obstacles() const
{
    QByteArrayList keys;
    if (isHidden())
        keys.append("Hidden");
    for (const char* key : switches) {
        if (isFalse(value(key)))
            keys.append(key);
    }
    if (has("OnlyShowIn") && !namesCurrentDesktop("OnlyShowIn"))
        keys.append("OnlyShowIn");
    if (namesCurrentDesktop("NotShowIn"))
        keys.append("NotShowIn");
    const QString program = QFile::decodeName(value("TryExec"));
    if (!program.isEmpty() && QStandardPaths::findExecutable(program).isEmpty())
        keys.append("TryExec");
    return keys;
}

bool AutostartEntry::namesCurrentDesktop(const char* key) const
{
    const QByteArrayList current = qgetenv("XDG_CURRENT_DESKTOP").split(':');
    const QByteArrayList named = value(key).split(';');
    return std::ranges::any_of(named, [&](const QByteArray& desktop) {
        return !desktop.isEmpty() && current.contains(desktop);
    });
}

} // namespace trovell
