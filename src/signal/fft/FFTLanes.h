// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// Numbers one by one: the plain path.
template <class T> struct FFTScalarLanes {
    using Scalar = T;
    using Element = T;
    using Pack = T;
    using Factor = T;
    static constexpr int width = 1;

    static Pack load(const Element* p) { return *p; }
    static Pack loadReversed(const Element* p) { return *p; }
    static void store(Element* p, Pack value) { *p = value; }
    static void storeReversed(Element* p, Pack value) { *p = value; }
    static Factor factors(const T* p) { return *p; }
    static Factor factorsReversed(const T* p) { return *p; }
    static Factor sameFactor(const T* p) { return *p; }
    static void storeColumn(T* df, qint64 /*stride*/, const Pack* column, qint64 count)
    {
        for (qint64 i = 0; i < count; ++i)
            df[i] = column[i];
    }
};

/// Several transforms side by side, one in each lane of a pack.
template <class Lanes> struct FFTColumnLanes {
    using Scalar = typename Lanes::Scalar;
    using Element = typename Lanes::Pack;
    using Pack = typename Lanes::Pack;
    using Factor = Scalar;
    static constexpr int width = 1;

    static Pack load(const Element* p) { return *p; }
    static void store(Element* p, Pack value) { *p = value; }
    static void storeReversed(Element* p, Pack value) { *p = value; }
    static Factor factors(const Scalar* p) { return *p; }
    static Factor factorsReversed(const Scalar* p) { return *p; }
    static Factor sameFactor(const Scalar* p) { return *p; }
};
