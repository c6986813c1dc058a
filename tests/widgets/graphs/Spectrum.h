// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

#include <cmath>
#include <complex>
#include <functional>
#include <vector>

/// Responses by other ways than the evaluation's own.
namespace spectrum {

using Complex = std::complex<long double>;

inline Complex pointAt(double frequency, double sampleRate)
{
    return std::polar(1.0L, -2 * std::acos(-1.0L) * frequency / sampleRate);
}

inline double decibels(long double squared)
{
    return squared > 0 ? static_cast<double>(10 * std::log10(squared)) : -100.0;
}

/// What `filter` makes of one sample and then silence, summed up at `frequency`.
inline double ofImpulse(const std::function<double(double)> &filter, double frequency,
                        double sampleRate, int samples)
{
    Complex sum = 0;
    const Complex step = pointAt(frequency, sampleRate);
    Complex z = 1;
    for (int n = 0; n < samples; ++n, z *= step)
        sum += z * static_cast<long double>(filter(n == 0 ? 1 : 0));
    return decibels(std::norm(sum));
}

inline bool near(double a, double b, double tolerance)
{
    return std::abs(a - b) <= tolerance;
}

inline std::vector<double> frequencies(double first, double last, int points)
{
    std::vector<double> all;
    for (int i = 0; i < points; ++i)
        all.push_back(first * std::pow(last / first, double(i) / (points - 1)));
    return all;
}

} // namespace spectrum

#define COMPARE_NEAR(actual, expected, tolerance)                                                  \
    QVERIFY2(                                                                                      \
        spectrum::near(actual, expected, tolerance),                                               \
        qPrintable(                                                                                \
            QStringLiteral("%1 instead of %2").arg(actual, 0, 'g', 17).arg(expected, 0, 'g', 17)))
