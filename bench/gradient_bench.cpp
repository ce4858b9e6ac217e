// How long the gradient painter takes for a full screen; 50 ms is the limit.
#include "controls/gradient_painter/cls_gradient.h"

#include <benchmark/benchmark.h>

namespace vistrel
{

namespace
{

void paintFullScreen(benchmark::State& state)
{
    Surface surface;
    surface.resize({1920, 1080}, 1);
    clsGradient gradient([&](const QString&, const QString&) { state.SkipWithError("painting failed"); });
    gradient.setAngle(static_cast<float>(state.range(0)));
    for (auto _ : state)
        gradient.Draw(&surface);
}

BENCHMARK(paintFullScreen)
    ->ArgName("angle")
    ->Arg(0)
    ->Arg(45)
    ->Arg(60)
    ->Arg(90)
    ->Arg(315)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace vistrel

BENCHMARK_MAIN();
