// SPDX-License-Identifier: MIT
//
// What the configuration of sway or i3 says about keys and workspaces (sway(5)). Pure, any thread.
#pragma once

#include <QByteArray>
#include <QKeyCombination>
#include <QList>
#include <QString>

#include <optional>

namespace trovell {

/// A key that this program can bind: by what it types, and by its place, since with Control not
/// every layout types a digit there.
struct SwayKey {
    /// Such as "Ctrl+Mod1+1" and "Ctrl+Mod1+10".
    QByteArray symbol;
    QByteArray code;
};

/// None for keys other than digits.
[[nodiscard]] std::optional<SwayKey> swayKey(QKeyCombination keys);

class SwayConfiguration {
public:
    /// The text of the configuration file.
    explicit SwayConfiguration(const QString& text);

    /// Whether the user bound the key, outside of binding modes.
    [[nodiscard]] bool binds(const SwayKey& key) const;
    /// The workspaces that it names, in the order of their first appearance.
    [[nodiscard]] const QStringList& workspaces() const { return m_workspaces; }

private:
    void readLine(QString line);
    void readWorkspaces(const QString& line);
    void readBinding(const QStringList& words);

    QList<std::pair<QString, QString>> m_variables;
    /// Those around the current line: what each began with.
    QStringList m_blocks;
    /// The parts of each, in one order and case.
    QList<QStringList> m_bound;
    QStringList m_workspaces;
};

} // namespace trovell
