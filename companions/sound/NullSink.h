// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// An output of the running sound server that nobody hears, there as long as the object lives. The
/// default output stays what it is.
class NullSink {
public:
    /// @param rate Hz
    explicit NullSink(int rate);
    ~NullSink();
    Q_DISABLE_COPY(NullSink)

    /// What keeps it from being there; empty: it is there.
    QString obstacle() const { return m_obstacle; }
    QString name() const { return m_name; }

private:
    QString m_name;
    QString m_obstacle;
    unsigned m_module; ///< that is the output; the server's number
};
