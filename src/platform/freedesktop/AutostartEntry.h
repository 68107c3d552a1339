// SPDX-License-Identifier: MIT
//
// The content of a desktop entry in an autostart folder (freedesktop.org Desktop Application
// Autostart Specification). What is not changed stays as it was, blank lines aside: comments,
// translations and the keys of others. Any thread.
#pragma once

#include "platform/freedesktop/GObjectPointer.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <optional>

namespace trovell {

class AutostartEntry {
public:
    /// None when `path` is no regular file, or one that desktops cannot read as a desktop entry.
    [[nodiscard]] static std::optional<AutostartEntry> read(const QString& path);

    /// What it takes to start the application of an installed desktop entry, and nothing else.
    [[nodiscard]] static AutostartEntry starting(const AutostartEntry& installed);

    /// Whether the current desktop would start the program at login.
    [[nodiscard]] bool isEffective() const;

    /// Removes what keeps the current desktop from starting the program, and takes from the
    /// installed desktop entry what is missing.
    void makeEffective(const AutostartEntry& installed);

    /// A hidden entry counts as deleted, and so does the system's entry of the same name.
    [[nodiscard]] bool isHidden() const;
    void hide();

    [[nodiscard]] QByteArray bytes() const;

private:
    AutostartEntry();

    [[nodiscard]] bool has(const char* key) const;
    /// Empty when it is missing.
    [[nodiscard]] QByteArray value(const char* key) const;
    void setValue(const char* key, const QByteArray& value);
    /// The names of the keys that keep the current desktop from starting it.
    [[nodiscard]] QByteArrayList obstacles() const;
    [[nodiscard]] bool namesCurrentDesktop(const char* key) const;

    GPointer<GKeyFile, g_key_file_free> m_file;
};

} // namespace trovell
