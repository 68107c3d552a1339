// SPDX-License-Identifier: MIT
//
// A disk without space: while it lives, no file of this process grows beyond a size. Main thread of
// a test.
#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

namespace trovell::test {

class FullDisk {
public:
    explicit FullDisk(rlim_t maximumBytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{maximumBytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
};

} // namespace trovell::test
