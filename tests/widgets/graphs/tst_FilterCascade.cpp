// SPDX-License-Identifier: MIT
#include "tests/widgets/graphs/Spectrum.h"
#include "widgets/graphs/FilterCascade.h"
#include "widgets/graphs/ResponseGrid.h"

#include <QTest>

#include <limits>

namespace {

constexpr double Rate = 48000;
constexpr double Corner = 1000;
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();
constexpr double Unlimited = std::numeric_limits<double>::infinity();

using Design = std::function<void(FilterCascade &, double frequency, double gain, double rate)>;

struct Named
{
    const char *name;
    Design design;
    /// The squared magnitude of the analogue prototype: `v` is the gain as a factor of the amplitude,
    /// `x` the frequency as a multiple of the corner.
    double (*prototype)(double v, double x);
};

double square(double x)
{
    return x * x;
}

const std::vector<Named> shelves{
    {"low shelf 1",
     [](FilterCascade &f, double at, double g, double fs) { f.designLowShelf1(at, g, fs); },
     [](double v, double x) {
         return v >= 1 ? (v * v + x * x) / (1 + x * x) : (1 + x * x) / (1 / (v * v) + x * x);
     }},
    {"low shelf 1 upper",
     [](FilterCascade &f, double at, double g, double fs) { f.designLowShelf1Upper(at, g, fs); },
     [](double v, double x) {
         return v >= 1 ? (1 + x * x) / (1 / (v * v) + x * x) : (v * v + x * x) / (1 + x * x);
     }},
    {"high shelf 1",
     [](FilterCascade &f, double at, double g, double fs) { f.designHighShelf1(at, g, fs); },
     [](double v, double x) {
         return v >= 1 ? (1 + x * x) / (1 + square(x / v)) : (1 + square(x * v)) / (1 + x * x);
     }},
    {"low shelf 2",
     [](FilterCascade &f, double at, double g, double fs) { f.designLowShelf2(at, g, fs); },
     [](double v, double x) {
         const double x4 = std::pow(x, 4);
         return v >= 1 ? (1 + x4) / (1 / (v * v) + x4) : (v * v + x4) / (1 + x4);
     }},
    {"high shelf 2",
     [](FilterCascade &f, double at, double g, double fs) { f.designHighShelf2(at, g, fs); },
     [](double v, double x) {
         const double x4 = std::pow(x, 4);
         return v >= 1 ? (1 + x4) / (1 + x4 / (v * v)) : (1 + x4 * v * v) / (1 + x4);
     }},
};

std::vector<Named> allDesigns()
{
    std::vector<Named> all = shelves;
    for (int order = 1; order <= 8; ++order) {
        all.push_back({"Butterworth low-pass",
                       [order](FilterCascade &f, double at, double, double fs) {
                           f.designLowPass(order, at, fs);
                       },
                       nullptr});
        all.push_back({"Butterworth high-pass",
                       [order](FilterCascade &f, double at, double, double fs) {
                           f.designHighPass(order, at, fs);
                       },
                       nullptr});
    }
    all.push_back(
        {"one-pole low-pass",
         [](FilterCascade &f, double at, double, double fs) { f.designOnePoleLowPass(at, fs); },
         nullptr});
    all.push_back(
        {"one-pole high-pass",
         [](FilterCascade &f, double at, double, double fs) { f.designOnePoleHighPass(at, fs); },
         nullptr});
    return all;
}

/// The definition: a product of quotients of complex polynomials.
double complexProduct(const FilterCascade &filter, double frequency, double rate)
{
    using spectrum::Complex;
    const Complex z = spectrum::pointAt(frequency, rate);
    Complex product = 1;
    const auto multiply = [&](long double b0, long double b1, long double b2, long double a1,
                              long double a2) {
        product *= (b0 + b1 * z + b2 * z * z) / (1.0L - a1 * z - a2 * z * z);
    };
    for (const FilterCascade::Section &each : filter.sections())
        multiply(each.b0, each.b1, each.b2, each.a1, each.a2);
    if (filter.hasFirstOrder())
        multiply(filter.firstOrder().b0, filter.firstOrder().b1, 0, filter.firstOrder().a1, 0);
    return spectrum::decibels(std::norm(product));
}

} // namespace

class tst_FilterCascade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newFiltersHaveOrderTwoAndNoOutput();
    void shelvesFollowTheirPrototypes();
    void butterworthFollowsItsPrototype();
    void onePoleFiltersDecayWithTheirTimeConstant();
    void responseIsTheSpectrumOfTheImpulse();
    void everyFormEqualsTheComplexProduct();
    void extremesStayFinite();
    void deepProductsStayInsideTheRange();
    void redesignKeepsTheMemoryUnlessTheOrderChanges();
};

void tst_FilterCascade::newFiltersHaveOrderTwoAndNoOutput()
{
    FilterCascade filter;
    QCOMPARE(filter.order(), 2);
    QCOMPARE(filter.responseDb(1000, Rate), -100.0);
    filter.designLowPass(-3, Corner, Rate); // counts as none
    QVERIFY(filter.sections().empty() && !filter.hasFirstOrder());
    COMPARE_NEAR(filter.responseDb(0, Rate), 0.0, 1e-9);
}

void tst_FilterCascade::shelvesFollowTheirPrototypes()
{
    for (const Named &shelf : shelves) {
        for (const double gain : {-15.0, -3.0, 0.0, 0.5, 18.0}) {
            FilterCascade filter;
            shelf.design(filter, Corner, gain, Rate);
            for (const double f : spectrum::frequencies(1e-3, 23999, 60)) {
                const double x = std::tan(M_PI * f / Rate) / std::tan(M_PI * Corner / Rate);
                const double expected =
                    spectrum::decibels(shelf.prototype(std::pow(10, gain / 20), x));
                QVERIFY2(spectrum::near(filter.responseDb(f, Rate), expected, 1e-9), shelf.name);
            }
        }
    }
}

void tst_FilterCascade::butterworthFollowsItsPrototype()
{
    for (const auto &[rate, corner] :
         {std::pair(44100.0, 20.0), {48000.0, 1000.0}, {96000.0, 20000.0}}) {
        for (int order = 1; order <= 8; ++order) {
            FilterCascade low;
            FilterCascade high;
            low.designLowPass(order, corner, rate);
            high.designHighPass(order, corner, rate);
            for (const double f : spectrum::frequencies(corner / 8, rate * 0.49, 60)) {
                const double x = std::tan(M_PI * f / rate) / std::tan(M_PI * corner / rate);
                const double power = std::pow(x, 2 * order);
                COMPARE_NEAR(low.responseDb(f, rate), -10 * std::log10(1 + power), 1e-6);
                COMPARE_NEAR(high.responseDb(f, rate), -10 * std::log10(1 + 1 / power), 1e-6);
            }
            QCOMPARE(low.responseDb(rate / 2, rate), -100.0);
            QCOMPARE(high.responseDb(0, rate), -100.0);
        }
    }
}

void tst_FilterCascade::onePoleFiltersDecayWithTheirTimeConstant()
{
    FilterCascade low;
    low.designOnePoleLowPass(Corner, Rate);
    COMPARE_NEAR(low.responseDb(0, Rate), 0.0, 1e-9);
    double rest = 1;
    const int timeConstants = 4;
    const int samples = int(std::round(timeConstants * Rate / (2 * M_PI * Corner)));
    for (int n = 0; n < samples; ++n)
        rest = 1 - low.filter(1);
    COMPARE_NEAR(rest, std::exp(-2 * M_PI * Corner / Rate * samples), 1e-12);

    FilterCascade high;
    high.designOnePoleHighPass(Corner, Rate);
    QCOMPARE(high.responseDb(0, Rate), -100.0);
    // Deliberate: its pole is where its zero's weight is, half as far from the circle as the
    // low-pass filter's.
    QCOMPARE(high.firstOrder().a1, high.firstOrder().b0);
    COMPARE_NEAR(high.firstOrder().a1, 0.5 + low.firstOrder().a1 / 2, 1e-15);
}

void tst_FilterCascade::responseIsTheSpectrumOfTheImpulse()
{
    for (const Named &named : allDesigns()) {
        for (const double f : {0.0, 400.0, 1000.0, 7000.0}) {
            FilterCascade filter;
            named.design(filter, Corner, 8, Rate);
            const double response = filter.responseDb(f, Rate);
            const double measured = spectrum::ofImpulse(
                [&](double sample) { return filter.filter(sample); }, f, Rate, 4000);
            QVERIFY2(spectrum::near(measured, response, 1e-6)
                         || (measured < -100 && response <= -100),
                     named.name);
        }
    }
}

void tst_FilterCascade::everyFormEqualsTheComplexProduct()
{
    constexpr std::size_t points = 333; // no multiple of what is worked on at once
    for (const double rate : {44100.0, 96000.0}) {
        const auto grid = ResponseGrid::logarithmic(20, rate * 0.49, points, rate);
        for (const double corner : {31.0, 1000.0, 15000.0}) {
            for (const Named &named : allDesigns()) {
                FilterCascade filter;
                named.design(filter, corner, -7, rate);
                std::vector<double> prepared(points);
                std::vector<double> plain(points);
                filter.responseDb(grid, prepared);
                filter.responseDb(grid.frequencies(), rate, plain);
                for (std::size_t i = 0; i < points; ++i) {
                    const double f = grid.frequencies()[i];
                    const double single = filter.responseDb(f, rate);
                    QVERIFY2(spectrum::near(single, prepared[i], 1e-9), named.name);
                    QVERIFY2(spectrum::near(single, plain[i], 1e-9), named.name);
                    QVERIFY2(spectrum::near(single, complexProduct(filter, f, rate), 1e-9),
                             named.name);
                }
            }
        }
    }
}

void tst_FilterCascade::extremesStayFinite()
{
    const double strange[] = {0,      -1,     1,     Rate / 2, Rate,      1e9,
                              -1e300, 1e-300, 1e300, Nothing,  Unlimited, -Unlimited};
    for (const Named &named : allDesigns()) {
        for (const double corner : strange) {
            for (const double rate : {Rate, 0.0, -1.0, Nothing, Unlimited}) {
                for (const double gain : {6.0, -1e5, 1e5, Nothing}) {
                    FilterCascade filter;
                    named.design(filter, corner, gain, rate);
                    std::vector<double> many(std::size(strange));
                    filter.responseDb(strange, rate, many);
                    for (std::size_t i = 0; i < many.size(); ++i) {
                        QVERIFY2(std::isfinite(many[i]), named.name);
                        QVERIFY2(spectrum::near(filter.responseDb(strange[i], rate), many[i], 1e-9),
                                 named.name);
                    }
                }
            }
        }
    }
}

void tst_FilterCascade::deepProductsStayInsideTheRange()
{
    FilterCascade filter;
    filter.designHighPass(64, 20, 96000);
    COMPARE_NEAR(filter.responseDb(20, 96000), -10 * std::log10(2.0), 1e-6);
    COMPARE_NEAR(filter.responseDb(1000, 96000), 0.0, 1e-6);
    QVERIFY(filter.responseDb(15, 96000) < -150);
    filter.designLowPass(FilterCascade::MaximumOrder + 1, 1000, 48000);
    QCOMPARE(filter.order(), FilterCascade::MaximumOrder);
    QVERIFY(std::isfinite(filter.responseDb(500, 48000)));
}

void tst_FilterCascade::redesignKeepsTheMemoryUnlessTheOrderChanges()
{
    FilterCascade filter;
    filter.designLowPass(2, Corner, Rate);
    filter.filter(1);
    filter.designHighShelf2(Corner, 6, Rate);
    QVERIFY(filter.filter(0) != 0);
    filter.designLowPass(3, Corner, Rate);
    QCOMPARE(filter.filter(0), 0.0);
    filter.filter(1);
    filter.clearState();
    QCOMPARE(filter.filter(1), 0.0);
    QCOMPARE(filter.order(), 3);
}

QTEST_GUILESS_MAIN(tst_FilterCascade)
#include "tst_FilterCascade.moc"
