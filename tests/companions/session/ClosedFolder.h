// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>

#include <linux/capability.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

/// Until it ends, no file can be made in a folder of the user's, whose open files still take what
/// is written to them. Root, whom permissions do not stop, gives up that right for this thread.
class ClosedFolder {
public:
    explicit ClosedFolder(const QString& path)
        : m_path(QFile::encodeName(path))
    {
        __user_cap_header_struct header = headerOfThisThread();
        ::syscall(SYS_capget, &header, m_before);
        __user_cap_data_struct without[_LINUX_CAPABILITY_U32S_3] = {m_before[0], m_before[1]};
        without[0].effective &= ~(1U << CAP_DAC_OVERRIDE);
        ::syscall(SYS_capset, &header, without);
        ::chmod(m_path.constData(), S_IRUSR | S_IXUSR);
    }
    Q_DISABLE_COPY(ClosedFolder)
    ~ClosedFolder()
    {
        ::chmod(m_path.constData(), S_IRWXU);
        __user_cap_header_struct header = headerOfThisThread();
        ::syscall(SYS_capset, &header, m_before);
    }

private:
    static __user_cap_header_struct headerOfThisThread()
    {
        return {_LINUX_CAPABILITY_VERSION_3, 0};
    }

    QByteArray m_path;
    __user_cap_data_struct m_before[_LINUX_CAPABILITY_U32S_3] = {};
};
