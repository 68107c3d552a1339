// SPDX-License-Identifier: MIT

#include "platform/sway/SwayReading.h"

namespace trovell {

using Question = SwayConnection::Question;

std::optional<SwayTree> readSwayTree(SwayConnection& connection)
{
    const auto answers = connection.ask({Question::tree, Question::workspaces, Question::outputs});
    if (!answers)
        return std::nullopt;
    return makeSwayTree(answers->at(0), answers->at(1), answers->at(2));
}

QString readSwayConfiguration(SwayConnection& connection)
{
    const auto answer = connection.ask(Question::configuration, {});
    return answer ? (*answer)[u"config"].toString() : QString();
}

} // namespace trovell
