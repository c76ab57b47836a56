// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// Until it ends, no file of this process grows beyond a size: as on a full disk, what still fits
/// is written and the rest is not.
class SmallDisk {
public:
    explicit SmallDisk(qint64 size)
        : m_before(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit small = {static_cast<rlim_t>(size), m_limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    Q_DISABLE_COPY(SmallDisk)
    ~SmallDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_before);
    }

private:
    rlimit m_limit {};
    void (*m_before)(int);
};
