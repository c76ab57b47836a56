// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/Check.h"

#include <QtGlobal>

#include <cmath>
#include <memory>

/// An array of a fixed number of elements with checked access. The elements start uninitialised.
/// Loops over many elements take data().
template <class T> class FFTArray {
public:
    FFTArray() = default;
    /// @param size number of elements; a negative one stops the program
    explicit FFTArray(qint64 size)
        : _len(size)
    {
        QUORIN_CHECK(size >= 0, "size >= 0");
        m_data.reset(new T[static_cast<std::size_t>(size)]);
    }

    qint64 size() const { return _len; }
    T* data() { return m_data.get(); }
    const T* data() const { return m_data.get(); }

    /// @param pos index, 0 to size() - 1; any other stops the program
    T& operator[](qint64 pos) { return m_data[checked(pos)]; }
    const T& operator[](qint64 pos) const { return m_data[checked(pos)]; }

private:
    std::size_t checked(qint64 pos) const
    {
        QUORIN_CHECK(pos >= 0, "pos >= 0");
        QUORIN_CHECK(pos < _len, "pos < _len");
        return static_cast<std::size_t>(pos);
    }

    std::unique_ptr<T[]> m_data;
    qint64 _len = 0;
};

/// A cosine and sine pair that is rotated by a fixed angle a step.
template <class T> struct FFTOscillator {
    T cosine = T(1);
    T sine = T(0);
    T stepCosine = T(1);
    T stepSine = T(0);

    /// @param angle of one step, radians
    void setStep(T angle)
    {
        stepCosine = std::cos(angle);
        stepSine = std::sin(angle);
    }
    void advance()
    {
        const T rotated = cosine * stepCosine - sine * stepSine;
        sine = sine * stepCosine + cosine * stepSine;
        cosine = rotated;
    }
};
