// SPDX-License-Identifier: MIT

#include "model/WorkspaceChoices.h"

#include "model/TrovellWorkspace.h"

#include <algorithm>
#include <array>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// Control and Option, in the mask's own bits.
constexpr quint32 controlOption = 0x1000 | 0x0800;

struct OfferedShortcut {
    quint32 keyCode;
    TextKey<> displayValue;
};

/// Key codes are not in the order of the digits: 22 is the digit 6.
constexpr std::array offeredShortcuts{
    OfferedShortcut{18, u"⌃⌥1"_key}, OfferedShortcut{19, u"⌃⌥2"_key},
    OfferedShortcut{20, u"⌃⌥3"_key}, OfferedShortcut{21, u"⌃⌥4"_key},
    OfferedShortcut{23, u"⌃⌥5"_key},
};

QList<std::optional<ShortcutDefinition>> makeShortcuts()
{
    QList<std::optional<ShortcutDefinition>> choices{std::nullopt};
    for (const auto& [keyCode, displayValue] : offeredShortcuts)
        choices.append(ShortcutDefinition{keyCode, controlOption, displayValue.text()});
    return choices;
}

} // namespace

const QStringList& symbols()
{
    static const QStringList names{
        u"rectangle.3.group"_s, u"briefcase"_s, u"paintbrush"_s, u"hammer"_s, u"book"_s,
        u"music.note"_s,        u"terminal"_s,  u"network"_s,
    };
    return names;
}

const QStringList& accents()
{
    static const QStringList identifiers{
        u"blue"_s, u"indigo"_s, u"purple"_s, u"green"_s, u"orange"_s,
    };
    return identifiers;
}

const QList<std::optional<ShortcutDefinition>>& shortcuts()
{
    static const auto choices = makeShortcuts();
    return choices;
}

Message displayName(const ShortcutDefinition& shortcut)
{
    for (const OfferedShortcut& offered : offeredShortcuts) {
        if (shortcut.displayValue == offered.displayValue.text())
            return offered.displayValue;
    }
    return Message::verbatim(shortcut.displayValue);
}

std::optional<ShortcutDefinition> WorkspaceChoices::shortcut() const
{
    return shortcuts().value(shortcutIndex);
}

WorkspaceChoices choicesOf(const TrovellWorkspace& workspace)
{
    return {
        .symbolName = workspace.symbolName(),
        .accentIdentifier = workspace.accentIdentifier(),
        .shortcutIndex = std::max<qsizetype>(0, shortcuts().indexOf(workspace.shortcut())),
    };
}

bool shortcutConflict(const ShortcutDefinition& chosen, const std::optional<QUuid>& editedId,
                      const QList<TrovellWorkspace*>& workspaces)
{
    return std::ranges::any_of(workspaces, [&](const TrovellWorkspace* workspace) {
        return workspace->id() != editedId && workspace->shortcut() == chosen;
    });
}

Message shortcutConflictText()
{
    return u"That shortcut is already assigned to another workspace."_key;
}

} // namespace trovell
