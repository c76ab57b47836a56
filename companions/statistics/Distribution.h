// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

/// How a figure is distributed over runs.
class Distribution {
public:
    /// @param values NaN is left out
    explicit Distribution(std::vector<double> values);

    /// How many values there are.
    int size() const { return static_cast<int>(m_sorted.size()); }
    /// Arithmetic mean; NaN without values.
    double mean() const { return m_mean; }
    /// Standard deviation of a sample, with n - 1; NaN for fewer than two values.
    double standardDeviation() const { return m_standardDeviation; }
    /// The value below which a share of the values lies, linear between two of them: definition 7
    /// of Hyndman and Fan (1996), Am. Stat. 50, 361-365. NaN without values.
    /// @param share 0 to 1
    double quantile(double share) const;
    const std::vector<double>& sorted() const { return m_sorted; }

private:
    std::vector<double> m_sorted;
    double m_mean;
    double m_standardDeviation;
};
