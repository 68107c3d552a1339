// SPDX-License-Identifier: MIT

#include "PeerProgram.h"

#include "Samples.h"

#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

namespace trovell::bench {

namespace {

/// Nothing heavier than this, so that the peer's time is its own.
bool spawnAndWait(const std::vector<char*>& arguments)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    return error == 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

} // namespace

double runPeer(const QByteArrayList& command, bool& hasFailed)
{
    std::vector<char*> arguments;
    for (const QByteArray& argument : command)
        arguments.push_back(const_cast<char*>(argument.constData()));
    arguments.push_back(nullptr);
    bool isDone = false;
    const double seconds = secondsOf([&] { isDone = spawnAndWait(arguments); });
    hasFailed |= !isDone;
    return seconds;
}

} // namespace trovell::bench
