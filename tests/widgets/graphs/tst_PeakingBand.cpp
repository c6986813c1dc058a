// SPDX-License-Identifier: MIT
#include "tests/support/Table.h"
#include "tests/widgets/graphs/Spectrum.h"
#include "widgets/graphs/PeakingBand.h"
#include "widgets/graphs/ResponseGrid.h"

#include <QTest>

#include <limits>

namespace {

constexpr double Rate = 48000;
constexpr double Centre = 1000;
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

PeakingBand designed(double frequency, double rate, double q, double gain)
{
    PeakingBand band;
    band.designPeaking(frequency, rate, q, gain);
    return band;
}

/// The frequency that the bilinear transform carries to where `ratio` times the centre's was.
double beside(double ratio)
{
    return std::atan(ratio * std::tan(M_PI * Centre / Rate)) * Rate / M_PI;
}

} // namespace

class tst_PeakingBand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newBandsAreFlat();
    void widthIsCentreOverQ();
    void followsTheCookbookFormula_data();
    void followsTheCookbookFormula();
    void qIsLoweredNearTheTop_data();
    void qIsLoweredNearTheTop();
    void hundredDecibelsIsACutLikeAnyOther();
    void orderNoneHasNoResponse();
    void responseIsTheSpectrumOfTheImpulse();
    void everyFormEqualsTheComplexOne();
    void extremesStayFinite();
};

void tst_PeakingBand::newBandsAreFlat()
{
    const PeakingBand band;
    QCOMPARE(band.order(), 2);
    QCOMPARE(band.kind(), PeakingBand::Flat);
    QCOMPARE(band.boostResponseDb(Centre, Rate), 0.0);
}

void tst_PeakingBand::widthIsCentreOverQ()
{
    for (const double q : {0.1, 0.7, 4.0, 16.0}) {
        const PeakingBand band = designed(Centre, Rate, q, 6);
        const double half = 1 / (2 * q);
        const double upper = half + std::sqrt(half * half + 1);
        COMPARE_NEAR(std::norm(band.bandPassResponse(beside(upper), Rate)), 0.5, 1e-9);
        COMPARE_NEAR(std::norm(band.bandPassResponse(beside(1 / upper), Rate)), 0.5, 1e-9);
        COMPARE_NEAR(std::norm(band.bandPassResponse(Centre, Rate)), 1.0, 1e-9);
    }
}

void tst_PeakingBand::followsTheCookbookFormula_data()
{
    Table<double, double, int>()
        .row("boost", 9, 2, PeakingBand::Boost)
        .row("cut", -12, 0.5, PeakingBand::Cut)
        .row("flat", 0, 2, PeakingBand::Flat);
}

/// The well-known cookbook's peaking filter counts its Q at half the gain, and a cut undoes a boost.
void tst_PeakingBand::followsTheCookbookFormula()
{
    const auto [gain, q, kind] = Table<double, double, int>::fetch();
    const long double a = std::pow(10.0L, std::abs(gain) / 40);
    const long double w0 = 2 * M_PI * Centre / Rate;
    const long double alpha = std::sin(w0) / (2 * q / a);
    const long double middle = -2 * std::cos(w0);
    const PeakingBand band = designed(Centre, Rate, q, gain);
    QCOMPARE(int(band.kind()), kind);
    for (const double f : spectrum::frequencies(1e-3, 23999, 60)) {
        const spectrum::Complex z = spectrum::pointAt(f, Rate);
        const spectrum::Complex h = ((1 + alpha * a) + middle * z + (1 - alpha * a) * z * z)
                                    / ((1 + alpha / a) + middle * z + (1 - alpha / a) * z * z);
        const double boost = spectrum::decibels(std::norm(h));
        if (gain < 0)
            COMPARE_NEAR(band.cutResponseDb(f, Rate), -boost, 1e-9);
        else
            COMPARE_NEAR(band.boostResponseDb(f, Rate), boost, 1e-9);
    }
}

void tst_PeakingBand::qIsLoweredNearTheTop_data()
{
    Table<double, double, double, double>()
        .row("44.1 kHz, low", 1000., 44100., 1., 1.)
        .row("44.1 kHz", 10000., 44100., 1., 0.77343)
        .row("44.1 kHz, Q 4", 10000., 44100., 4., 4 * 0.71323)
        .row("44.1 kHz, never below 0.1", 20000., 44100., 0.2, 0.1)
        .row("48 kHz, at the threshold", 2000., 48000., 16., 16.)
        .row("48 kHz, above it, still kept", 4000., 48000., 16., 16.)
        .row("48 kHz", 10000., 48000., 1., 0.84656)
        .row("88.2 kHz, at the threshold", 4000., 88200., 64., 64.)
        .row("88.2 kHz, never raised", 10000., 88200., 1., 1.)
        .row("88.2 kHz", 20000., 88200., 1., 0.80246)
        .row("96 kHz", 20000., 96000., 1., 0.81451)
        .row("192 kHz like 96 kHz", 20000., 192000., 2., 2 * 0.79069);
}

void tst_PeakingBand::qIsLoweredNearTheTop()
{
    const auto [frequency, rate, q, effective] = Table<double, double, double, double>::fetch();
    const PeakingBand band = designed(frequency, rate, q, 6);
    // What the poles say of the Q.
    const double u = 2 * std::tan(M_PI * frequency / rate);
    const double found = 2 * u * (1 + band.c1()) / ((u * u + 4) * (1 - band.c1()));
    COMPARE_NEAR(found, effective, 1e-9);
}

void tst_PeakingBand::hundredDecibelsIsACutLikeAnyOther()
{
    const PeakingBand band = designed(Centre, Rate, 1, -100);
    QCOMPARE(band.kind(), PeakingBand::Cut);
    COMPARE_NEAR(band.gainMinusOne(), 99999.0, 1e-6);
    COMPARE_NEAR(band.cutResponseDb(Centre, Rate), -100.0, 1e-6);
    QVERIFY(band.cutResponseDb(2 * Centre, Rate) > -100.0);
}

void tst_PeakingBand::orderNoneHasNoResponse()
{
    PeakingBand band = designed(Centre, Rate, 1, 6);
    band.setOrder(0);
    QCOMPARE(band.boostResponseDb(Centre, Rate), -100.0);
    QCOMPARE(band.cutResponseDb(Centre, Rate), -100.0);
    QCOMPARE(band.bandPassResponse(Centre, Rate), std::complex<double>(1));
    QCOMPARE(band.filter(1), 0.0);
    band.setOrder(2);
    COMPARE_NEAR(band.boostResponseDb(Centre, Rate), 6.0, 1e-9);
}

void tst_PeakingBand::responseIsTheSpectrumOfTheImpulse()
{
    for (const double gain : {9.0, -9.0}) {
        for (const double f : {0.0, 700.0, 1000.0, 9000.0}) {
            PeakingBand band = designed(Centre, Rate, 3, gain);
            const double response =
                gain < 0 ? band.cutResponseDb(f, Rate) : band.boostResponseDb(f, Rate);
            const double measured = spectrum::ofImpulse(
                [&](double sample) { return band.filter(sample); }, f, Rate, 8000);
            COMPARE_NEAR(measured, response, 1e-6);
        }
    }
}

void tst_PeakingBand::everyFormEqualsTheComplexOne()
{
    constexpr std::size_t points = 333;
    for (const double rate : {44100.0, 96000.0}) {
        const auto grid = ResponseGrid::logarithmic(20, rate * 0.49, points, rate);
        for (const double centre : {20.0, 1000.0, 16000.0}) {
            const PeakingBand band = designed(centre, rate, 8, 18);
            std::vector<double> boosts(points);
            std::vector<double> cuts(points);
            std::vector<double> plain(points);
            band.boostResponseDb(grid, boosts);
            band.cutResponseDb(grid, cuts);
            band.cutResponseDb(grid.frequencies(), rate, plain);
            for (std::size_t i = 0; i < points; ++i) {
                const double f = grid.frequencies()[i];
                const spectrum::Complex z = spectrum::pointAt(f, rate);
                const spectrum::Complex bandPass =
                    (long double)band.bandPassGain() * (1.0L - z * z)
                    / (1.0L + (long double)band.c0() * z + (long double)band.c1() * z * z);
                const double expected = spectrum::decibels(
                    std::norm(1.0L + (long double)band.gainMinusOne() * bandPass));
                COMPARE_NEAR(band.boostResponseDb(f, rate), expected, 1e-9);
                COMPARE_NEAR(boosts[i], expected, 1e-9);
                COMPARE_NEAR(cuts[i], -expected, 1e-9);
                COMPARE_NEAR(plain[i], -expected, 1e-9);
                COMPARE_NEAR(band.cutResponseDb(f, rate), -expected, 1e-9);
            }
        }
    }
}

void tst_PeakingBand::extremesStayFinite()
{
    const double strange[] = {0, -1, 1e-300, 1000, Rate / 2, Rate, 1e300, Nothing};
    for (const double frequency : strange) {
        for (const double rate : {Rate, 0.0, -1.0, Nothing}) {
            for (const double q : strange) {
                for (const double gain : {6.0, -1e5, 1e5, Nothing}) {
                    const PeakingBand band = designed(frequency, rate, q, gain);
                    std::vector<double> many(std::size(strange));
                    band.boostResponseDb(strange, rate, many);
                    for (std::size_t i = 0; i < many.size(); ++i) {
                        QVERIFY(std::isfinite(many[i]));
                        QVERIFY(std::isfinite(band.cutResponseDb(strange[i], rate)));
                        QVERIFY(std::isfinite(std::norm(band.bandPassResponse(strange[i], rate))));
                    }
                }
            }
        }
    }
}

QTEST_GUILESS_MAIN(tst_PeakingBand)
#include "tst_PeakingBand.moc"
