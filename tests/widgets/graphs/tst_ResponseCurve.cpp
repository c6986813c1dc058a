// SPDX-License-Identifier: MIT
#include "tests/widgets/graphs/Spectrum.h"
#include "widgets/graphs/FilterCascade.h"
#include "widgets/graphs/PeakingBand.h"
#include "widgets/graphs/ResponseCurve.h"

#include <QTest>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<int> allocations = 0;

} // namespace

void *operator new(std::size_t size)
{
    ++allocations;
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

constexpr double Rate = 48000;
constexpr std::size_t Points = 201;

PeakingBand peak(double frequency, double gain)
{
    PeakingBand band;
    band.designPeaking(frequency, Rate, 1, gain);
    return band;
}

} // namespace

class tst_ResponseCurve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void logarithmicGridsHaveEqualSteps();
    void bandsAddUp();
    void turningOneBandLeavesNoTrace();
    void numbersWithoutABandAreIgnored();
    void shortSpansAreFilledAsFarAsTheyGo();
    void evaluatingAllocatesNothing();
};

void tst_ResponseCurve::logarithmicGridsHaveEqualSteps()
{
    const auto grid = ResponseGrid::logarithmic(20, 20000, 4, Rate);
    const QList<double> expected{20, 200, 2000, 20000};
    for (qsizetype i = 0; i < 4; ++i)
        COMPARE_NEAR(grid.frequencies()[std::size_t(i)], expected[i], 1e-9);
    QCOMPARE(ResponseGrid::logarithmic(20, 20000, 1, Rate).frequencies()[0], 20.0);
    QCOMPARE(ResponseGrid::logarithmic(20, 20000, 0, Rate).size(), std::size_t(0));
}

void tst_ResponseCurve::bandsAddUp()
{
    const auto grid = ResponseGrid::logarithmic(20, 20000, Points, Rate);
    ResponseCurve curve(grid, 3);
    FilterCascade highPass;
    highPass.designHighPass(2, 80, Rate);
    curve.setBand(0, highPass);
    curve.setBand(1, peak(500, 6));
    curve.setBand(2, peak(3000, -9));
    for (std::size_t i = 0; i < Points; ++i) {
        const double f = grid.frequencies()[i];
        COMPARE_NEAR(curve.sum()[i],
                     highPass.responseDb(f, Rate) + peak(500, 6).boostResponseDb(f, Rate)
                         + peak(3000, -9).cutResponseDb(f, Rate),
                     1e-9);
    }
}

void tst_ResponseCurve::turningOneBandLeavesNoTrace()
{
    const auto grid = ResponseGrid::logarithmic(20, 20000, Points, Rate);
    ResponseCurve turned(grid, 3);
    for (const std::size_t band : {0, 1, 1, 2, 1, 0, 1}) {
        for (int step = 0; step < 50; ++step)
            turned.setBand(band, peak(200 * double(band + 1), step - 25.0));
    }
    turned.setBand(0, peak(200, 3));
    turned.setFlat(1);
    turned.setBand(2, peak(600, -3));
    ResponseCurve straight(grid, 3);
    straight.setBand(2, peak(600, -3));
    straight.setBand(0, peak(200, 3));
    for (std::size_t i = 0; i < Points; ++i)
        COMPARE_NEAR(turned.sum()[i], straight.sum()[i], 1e-12);
}

void tst_ResponseCurve::numbersWithoutABandAreIgnored()
{
    ResponseCurve curve(ResponseGrid::logarithmic(20, 20000, Points, Rate), 1);
    curve.setBand(1, peak(500, 6));
    curve.setFlat(7);
    for (const double decibels : curve.sum())
        QCOMPARE(decibels, 0.0);
}

void tst_ResponseCurve::shortSpansAreFilledAsFarAsTheyGo()
{
    const auto grid = ResponseGrid::logarithmic(20, 20000, Points, Rate);
    std::vector<double> decibels(Points + 5, 7.0);
    peak(500, 6).boostResponseDb(grid, std::span(decibels).first(100));
    QVERIFY(decibels[99] != 7.0);
    QCOMPARE(decibels[100], 7.0);
    peak(500, 6).boostResponseDb(grid, decibels);
    QCOMPARE(decibels[Points], 7.0);
    peak(500, 6).boostResponseDb(std::span<const double>(), Rate, decibels);
    peak(500, 6).boostResponseDb(grid, {});
}

void tst_ResponseCurve::evaluatingAllocatesNothing()
{
    const auto grid = ResponseGrid::logarithmic(20, 20000, Points, Rate);
    ResponseCurve curve(grid, 2);
    std::vector<double> decibels(Points);
    FilterCascade filter;
    filter.designLowPass(9, 1000, Rate);
    PeakingBand band;
    const int before = allocations;
    filter.designLowPass(9, 2000, Rate);
    band.designPeaking(700, Rate, 2, 6);
    double sum = filter.responseDb(440, Rate) + band.cutResponseDb(440, Rate);
    filter.responseDb(grid, decibels);
    filter.responseDb(grid.frequencies(), Rate, decibels);
    band.boostResponseDb(grid, decibels);
    curve.setBand(0, filter);
    curve.setBand(1, band);
    sum += filter.filter(1) + band.filter(1);
    QCOMPARE(allocations - before, 0);
    QVERIFY(std::isfinite(sum));
    // The library's allocations are counted.
    filter.setOrder(12);
    QVERIFY(allocations > before);
}

QTEST_GUILESS_MAIN(tst_ResponseCurve)
#include "tst_ResponseCurve.moc"
