// SPDX-License-Identifier: MIT

#include "platform/sway/SwayWorkspaces.h"

namespace trovell {

using namespace Qt::StringLiterals;

QStringList virtualDesktopNames(const SwayTree& tree, const SwayConfiguration& configuration)
{
    constexpr int least = 10;
    constexpr int most = 64;
    QStringList numbered;
    for (int number = 1; number <= least; ++number)
        numbered.append(QString::number(number));
    QStringList named;
    const auto add = [&](const QString& name) {
        const int number = workspaceNumber(name);
        if (number < 1 || number > most)
            return named.contains(name) ? void() : named.append(name);
        while (numbered.size() < number)
            numbered.append(QString::number(numbered.size() + 1));
        numbered[number - 1] = name;
    };
    for (const QString& name : configuration.workspaces())
        add(name);
    QStringList inUse;
    for (const SwayWorkspace& workspace : tree.workspaces)
        inUse.append(workspace.name);
    inUse.sort();
    for (const QString& name : std::as_const(inUse))
        add(name);
    return numbered + named;
}

QByteArray workspaceArgument(const QString& name)
{
    QString text = name;
    text.removeIf([](QChar c) { return c == u'"' || c == u'\\' || c < u' '; });
    const QByteArray quoted = '"' + text.toUtf8() + '"';
    return workspaceNumber(name) >= 0 ? "number " + quoted : quoted;
}

} // namespace trovell
