// SPDX-License-Identifier: MIT

#include "platform/sway/SwayWorkspaces.h"

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

int workspaceNumber(const QString& name)
{
    const auto end = std::ranges::find_if(name, [](QChar c) { return c < u'0' || c > u'9'; });
    bool isNumber = false;
    const int number = name.first(end - name.begin()).toInt(&isNumber);
    return isNumber ? number : -1;
}

bool isSameWorkspace(const QString& a, const QString& b)
{
    return a == b || (workspaceNumber(a) >= 0 && workspaceNumber(a) == workspaceNumber(b));
}

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
