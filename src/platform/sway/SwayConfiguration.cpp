// SPDX-License-Identifier: MIT

#include "platform/sway/SwayConfiguration.h"

#include <QRegularExpression>

#include <algorithm>

namespace trovell {

using namespace Qt::StringLiterals;

namespace {

/// The parts of a combination under one name each, sorted.
QStringList partsOf(const QString& combination)
{
    static const QHash<QString, QString> sameModifiers = {{u"control"_s, u"ctrl"_s},
                                                          {u"alt"_s, u"mod1"_s},
                                                          {u"super"_s, u"mod4"_s},
                                                          {u"logo"_s, u"mod4"_s}};
    QStringList parts = combination.toLower().split(u'+', Qt::SkipEmptyParts);
    for (QString& part : parts)
        part = sameModifiers.value(part, part);
    // i3 binds for one keyboard group each.
    parts.removeIf([](const QString& part) { return part.startsWith(u"group"); });
    parts.sort();
    return parts;
}

bool isBinding(const QString& command)
{
    return command == u"bindsym" || command == u"bindcode";
}

} // namespace

std::optional<SwayKey> swayKey(QKeyCombination keys)
{
    const int digit = keys.key() - Qt::Key_0;
    if (digit < 0 || digit > 9)
        return std::nullopt;
    QByteArray modifiers;
    for (const auto& [modifier, name] :
         {std::pair(Qt::ControlModifier, "Ctrl+"), std::pair(Qt::AltModifier, "Mod1+"),
          std::pair(Qt::ShiftModifier, "Shift+"), std::pair(Qt::MetaModifier, "Mod4+")})
        modifiers += keys.keyboardModifiers().testFlag(modifier) ? name : "";
    // The number row of evdev: 1 is 10, 0 comes after 9.
    const int code = digit == 0 ? 19 : 9 + digit;
    return SwayKey{modifiers + QByteArray::number(digit), modifiers + QByteArray::number(code)};
}

SwayConfiguration::SwayConfiguration(const QString& text)
{
    QString joined = text;
    joined.replace(u"\\\n"_s, u" "_s);
    const QStringList lines = joined.split(u'\n');
    for (const QString& line : lines)
        readLine(line.trimmed());
    for (QStringList& parts : m_bound)
        parts.sort();
}

void SwayConfiguration::readLine(QString line)
{
    if (line.isEmpty() || line.startsWith(u'#'))
        return;
    if (line.startsWith(u'}')) {
        if (!m_blocks.isEmpty())
            m_blocks.removeLast();
        return;
    }
    static const QRegularExpression setting(uR"(^set\s+(\$\S+)\s+(.*)$)"_s);
    const QRegularExpressionMatch set = setting.match(line);
    if (set.hasMatch())
        line = set.captured(2);
    // The longest names first: $mod is the beginning of $mode.
    for (const auto& [name, value] : std::as_const(m_variables))
        line.replace(name, value);
    if (set.hasMatch()) {
        m_variables.append({set.captured(1), line});
        std::ranges::sort(m_variables, std::greater{},
                          [](const auto& variable) { return variable.first.size(); });
        return;
    }
    const QStringList words = line.split(QRegularExpression(u"\\s+"_s));
    readWorkspaces(line);
    if (words.last() == u"{")
        return m_blocks.append(words.first());
    if (m_blocks.isEmpty() && isBinding(words.first()))
        readBinding(words.mid(1));
    else if (m_blocks.size() == 1 && isBinding(m_blocks.first()))
        readBinding(words);
}

void SwayConfiguration::readBinding(const QStringList& words)
{
    const auto keys =
        std::ranges::find_if(words, [](const QString& word) { return !word.startsWith(u"--"); });
    if (keys != words.end())
        m_bound.append(partsOf(*keys));
}

void SwayConfiguration::readWorkspaces(const QString& line)
{
    static const QRegularExpression use(
        uR"x(\bworkspace\s+(?:--\S+\s+)*(?:number\s+)?(?:"([^"]+)"|([^\s;,"]+)))x"_s);
    static const QStringList otherWords{u"next"_s,           u"prev"_s,  u"next_on_output"_s,
                                        u"prev_on_output"_s, u"to"_s,    u"back_and_forth"_s,
                                        u"current"_s,        u"output"_s};
    auto found = use.globalMatch(line);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        const QString name = match.captured(1) + match.captured(2);
        if (!otherWords.contains(name) && !name.startsWith(u'$') && !m_workspaces.contains(name))
            m_workspaces.append(name);
    }
}

bool SwayConfiguration::binds(const SwayKey& key) const
{
    return m_bound.contains(partsOf(QString::fromLatin1(key.symbol))) ||
           m_bound.contains(partsOf(QString::fromLatin1(key.code)));
}

} // namespace trovell
