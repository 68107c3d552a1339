// SPDX-License-Identifier: MIT
//
// The login item of this program: an entry in the user's autostart folder (freedesktop.org Desktop
// Application Autostart Specification), read anew at every question. Main thread.
//
// An entry that desktops would start is "enabled", one that is switched off "requires approval"; it
// hides an entry of the same name that the system may have. Without any entry the item is "not
// registered", or "not found" when the program's own desktop file is not installed.
//
// Registering keeps what an entry holds and removes only what keeps this desktop from starting it.
// Unregistering removes the entry when it holds nothing but what registering wrote, or is a link
// to a file elsewhere; otherwise, and where the system has an entry, it is marked as hidden. Files
// behind links are never written.
#pragma once

#include "services/LoginItemSystem.h"

#include <QStringList>

#include <optional>

namespace trovell {

class AutostartEntry;

class AutostartLoginItem final : public LoginItemSystem {
public:
    /// The id of the program's desktop file, without ".desktop".
    explicit AutostartLoginItem(const QString& applicationId);

    [[nodiscard]] Expected<void, QString> registerLoginItem() override;
    [[nodiscard]] Expected<void, QString> unregisterLoginItem() override;
    [[nodiscard]] LoginItemStatus status() const override;

private:
    [[nodiscard]] QString userPath() const;
    [[nodiscard]] QStringList systemPaths() const;
    [[nodiscard]] std::optional<AutostartEntry> currentEntry() const;
    [[nodiscard]] std::optional<AutostartEntry> installedEntry() const;
    /// Whether the user's file can be deleted and nothing is lost.
    [[nodiscard]] bool isExpendable(const AutostartEntry& userEntry) const;
    [[nodiscard]] Expected<void, QString> write(const AutostartEntry& entry) const;
    [[nodiscard]] Expected<void, QString> removeUserFile() const;

    QString m_fileName;
};

} // namespace trovell
