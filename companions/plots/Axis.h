// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

/// One axis of a plot: its title and the range of values that it shows.
class Axis {
public:
    enum class Scale {
        linear,
        counts, ///< linear, for whole numbers: no ticks between them
        logarithmic,
    };

    /// @param min, max finite and min < max; above 0 on a logarithmic scale
    Axis(QString title, Scale scale, double min, double max);

    /// An axis that shows all of the values with a little room at both ends. Values that it cannot
    /// show (not finite or beyond 1e250, on a logarithmic scale also below 1e-250) are left out;
    /// without any other it runs from 0 to 1, on a logarithmic scale from 1 to 10.
    static Axis covering(const QString& title, Scale scale, const QVector<double>& values);

    QString title() const { return m_title; }
    double min() const { return m_min; }
    double max() const { return m_max; }

    /// Where a value lies: 0 at the smallest shown, 1 at the largest, outside beyond. Not finite
    /// for a value that the scale does not have.
    double position(double value) const;

    /// The values to label, in rising order: multiples of 1, 2 or 5 times a power of ten. On a
    /// logarithmic scale these are powers of ten, or 1, 2 and 5 times those, or, where the range is
    /// too narrow for three of them, the ones of a linear scale.
    /// @param most about how many there is room for, at least 2
    QVector<double> ticks(int most) const;

private:
    double scaled(double value) const;
    QVector<double> logarithmicTicks(int most) const;

    QString m_title;
    Scale m_scale;
    double m_min;
    double m_max;
};
