// SPDX-License-Identifier: MIT
// What the response of a filter costs.
#include "bench/references/FilterReference.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "widgets/graphs/FilterCascade.h"
#include "widgets/graphs/PeakingBand.h"
#include "widgets/graphs/ResponseCurve.h"

#include <QtGlobal>

#include <cmath>

namespace {

constexpr double Rate = 48000;
constexpr std::size_t Points = 1024;
constexpr std::size_t Bands = 8;
constexpr double Tolerance = 1e-9;

/// A filter of eight sections, the plot that shows it, and the same for the references.
class ResponseScene
{
public:
    ResponseScene()
    {
        filter.designHighPass(2 * Bands, 300, Rate);
        for (const FilterCascade::Section &each : filter.sections())
            sections.push_back({each.b0, each.b1, each.b2, each.a1, each.a2});
        if (sections.size() != Bands)
            qFatal("the filter is not as it must be");
    }

    void evaluate()
    {
        filter.responseDb(grid, decibels);
        benchmark::ClobberMemory();
    }

    ResponseGrid grid = ResponseGrid::logarithmic(20, 20000, Points, Rate);
    FilterCascade filter;
    std::vector<FilterReference::Section> sections;
    std::vector<double> decibels = std::vector<double>(Points);
};

template<typename Action>
rounds::Case repeated(const char *name, Action action)
{
    return {name, [action](benchmark::State &state) mutable {
                for (auto _ : state)
                    action();
            }};
}

/// Ends the program unless the curve, and every single value, is the complex product.
void requireEqual(ResponseScene &scene)
{
    scene.evaluate();
    for (std::size_t i = 0; i < Points; ++i) {
        const double frequency = scene.grid.frequencies()[i];
        const double expected = complexProductDb(scene.sections, frequency, Rate);
        if (std::abs(scene.decibels[i] - expected) > Tolerance
            || std::abs(scene.filter.responseDb(frequency, Rate) - expected) > Tolerance)
            qFatal("the response at %g Hz is not as it must be", frequency);
    }
}

} // namespace

Measurement responseCurve()
{
    ResponseScene scene;
    requireEqual(scene);
    const FilterReference reference(scene.sections);
    std::vector<double> decibels(Points);
    return rounds::compare({repeated("curve", [&scene] { scene.evaluate(); }),
                            repeated("filter reference",
                                     [&] {
                                         reference.decibels(scene.grid.halfSines(), decibels);
                                         benchmark::ClobberMemory();
                                     })},
                           rounds::firstToSecond);
}

Measurement responseCall()
{
    ResponseScene scene;
    requireEqual(scene);
    auto next = [&scene, at = std::size_t(0)]() mutable {
        at = (at + 1) % Points;
        return scene.grid.frequencies()[at];
    };
    return rounds::compare(
        {repeated("call",
                  [&scene, next]() mutable {
                      benchmark::DoNotOptimize(scene.filter.responseDb(next(), Rate));
                  }),
         repeated("complex product",
                  [&scene, next]() mutable {
                      benchmark::DoNotOptimize(complexProductDb(scene.sections, next(), Rate));
                  })},
        rounds::firstToSecond);
}

Measurement responseOneBand()
{
    ResponseScene scene;
    ResponseCurve curve(scene.grid, Bands);
    PeakingBand band;
    for (std::size_t number = 0; number < Bands; ++number) {
        band.designPeaking(60 * std::pow(2, double(number)), Rate, 1.4, 6);
        curve.setBand(number, band);
    }
    double gain = 0;
    const auto turn = [&] {
        gain = gain > 17 ? -18 : gain + 0.1;
        band.designPeaking(500, Rate, 1.4, gain);
        curve.setBand(3, band);
        benchmark::DoNotOptimize(curve.sum().data());
        benchmark::ClobberMemory();
    };
    return rounds::compare(
        {repeated("one band", turn), repeated("whole evaluation", [&scene] { scene.evaluate(); })},
        rounds::firstToSecond);
}
