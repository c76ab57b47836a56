// SPDX-License-Identifier: GPL-3.0-or-later
// Axes of plots: their range, scale and ticks.
#include "plots/Axis.h"

#include <algorithm>
#include <cmath>

namespace {

// Limits that are themselves multiples of the step count as inside in spite of their rounding.
constexpr double slack = 1e-9;

// Leaves room around the values within the range of a double.
constexpr double largestShown = 1e250;

bool canShow(double value, Axis::Scale scale)
{
    return std::abs(value) <= largestShown
        && (scale != Axis::Scale::logarithmic || value >= 1 / largestShown);
}

double marginAround(double least, double greatest)
{
    constexpr double room = 0.04;
    const double range = greatest - least;
    const double magnitude = std::max(std::abs(least), std::abs(greatest));
    if (range > magnitude * slack && range > 1 / largestShown) {
        return range * room;
    }
    return magnitude > 1 / largestShown ? magnitude * room : room;
}

double niceStep(double range, int most)
{
    const double rough = range / most;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= rough * (1 - slack)) {
            return factor * power;
        }
    }
    return 10 * power;
}

QVector<double> linearTicks(double min, double max, int most, double leastStep)
{
    const double step = std::max(leastStep, niceStep(max - min, most));
    const double first = std::ceil(min / step - slack);
    const double last = std::floor(max / step + slack);
    const int n = static_cast<int>(last - first) + 1;
    QVector<double> ticks;
    for (int i = 0; i < n; ++i) {
        ticks.append((first + i) * step);
    }
    return ticks;
}

QVector<double> ticksOfDecades(double min, double max, const QVector<double>& factors, int every)
{
    QVector<double> ticks;
    const int first = static_cast<int>(std::floor(std::log10(min)));
    for (int decade = first; std::pow(10.0, decade) <= max * (1 + slack); ++decade) {
        if (decade % every != 0) {
            continue;
        }
        for (const double factor : factors) {
            const double tick = factor * std::pow(10.0, decade);
            if (tick >= min * (1 - slack) && tick <= max * (1 + slack)) {
                ticks.append(tick);
            }
        }
    }
    return ticks;
}

} // namespace

Axis::Axis(QString title, Scale scale, double min, double max)
    : m_title(std::move(title))
    , m_scale(scale)
    , m_min(min)
    , m_max(max)
{
}

Axis Axis::covering(const QString& title, Scale scale, const QVector<double>& values)
{
    const bool isLogarithmic = scale == Scale::logarithmic;
    QVector<double> shown;
    for (const double value : values) {
        if (canShow(value, scale)) {
            shown.append(isLogarithmic ? std::log10(value) : value);
        }
    }
    double low = 0.0;
    double high = 1.0;
    if (!shown.isEmpty()) {
        const auto [least, greatest] = std::minmax_element(shown.cbegin(), shown.cend());
        const double margin = marginAround(*least, *greatest);
        low = *least - margin;
        high = *greatest + margin;
    }
    return isLogarithmic ? Axis(title, scale, std::pow(10.0, low), std::pow(10.0, high))
                         : Axis(title, scale, low, high);
}

double Axis::scaled(double value) const
{
    return m_scale == Scale::logarithmic ? std::log10(value) : value;
}

double Axis::position(double value) const
{
    return (scaled(value) - scaled(m_min)) / (scaled(m_max) - scaled(m_min));
}

QVector<double> Axis::ticks(int most) const
{
    return m_scale == Scale::logarithmic
        ? logarithmicTicks(most)
        : linearTicks(m_min, m_max, most, m_scale == Scale::counts ? 1.0 : 0.0);
}

QVector<double> Axis::logarithmicTicks(int most) const
{
    constexpr int fewest = 3;
    const QVector<double> fine = ticksOfDecades(m_min, m_max, {1, 2, 5}, 1);
    if (fine.size() < fewest) {
        return linearTicks(m_min, m_max, most, 0.0);
    }
    if (fine.size() <= most) {
        return fine;
    }
    int every = 1;
    while (ticksOfDecades(m_min, m_max, {1}, every).size() > most) {
        ++every;
    }
    return ticksOfDecades(m_min, m_max, {1}, every);
}
