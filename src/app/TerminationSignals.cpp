// SPDX-License-Identifier: MIT

#include "app/TerminationSignals.h"

#include <QCoreApplication>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace trovell {

namespace {

constexpr std::array terminationSignals{SIGTERM, SIGINT, SIGHUP};

// A signal handler gets no arguments, so what it writes to has to be global.
std::array<int, 2> wakeUpPipe{-1, -1};

void wakeUp(int)
{
    const char byte = 0;
    // A full pipe means that the wake-up is under way.
    [[maybe_unused]] const ssize_t written = write(wakeUpPipe[1], &byte, 1);
}

int openWakeUpPipe()
{
    // Without a pipe the signals keep ending the process at once.
    if (pipe2(wakeUpPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return -1;
    for (const int signal : terminationSignals)
        std::signal(signal, &wakeUp);
    return wakeUpPipe[0];
}

} // namespace

TerminationSignals::TerminationSignals() : m_notifier(openWakeUpPipe(), QSocketNotifier::Read)
{
    // Not quit(), which closes the windows first: an open sheet would count as dismissed by its
    // user, or refuse.
    QObject::connect(&m_notifier, &QSocketNotifier::activated, QCoreApplication::instance(),
                     [] { QCoreApplication::exit(); });
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : terminationSignals)
        std::signal(signal, SIG_DFL);
    m_notifier.setEnabled(false);
    for (const int end : wakeUpPipe)
        close(end);
    wakeUpPipe = {-1, -1};
}

} // namespace trovell
