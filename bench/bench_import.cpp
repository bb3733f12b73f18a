// What does the conversion cost beside the reading? The face collector alone, and whole loads of a world of many small
// shapes and of one large one; what `bench_read` measures for the same worlds is the share of the reader.

#include <VekSGdb/CVekDBRoot.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "bench/WorldText.h"
#include "embedded/MessageSink.h"
#include "import/sglLoadFile_wrl.h"
#include "import/sglTriStripper.h"
#include "import/sglVertStructVNTC.h"

namespace {

constexpr int kShapes = 5'000;
constexpr int kTriangles = 50'000;

template <std::size_t kCorners>
void collect(benchmark::State& state) {
  for (auto _ : state) {
    sglTriStripper<sglVertStructVNTC> stripper;
    for (std::uint32_t face = 0; face < kTriangles; ++face) {
      std::array<sglVertStructVNTC, kCorners> corners;
      for (std::uint32_t corner = 0; corner < kCorners; ++corner) corners[corner] = {face + corner, 0, 0, 0};
      stripper.addPolyFace(corners);
    }
    benchmark::DoNotOptimize(stripper.getTriangles().empty());
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * kTriangles);
}

void load(benchmark::State& state, const std::string& body) {
  const bench::WorldFile file(body);
  embedded::setMessageSink([](unsigned, std::string_view) {});
  for (auto _ : state) {
    const std::unique_ptr<CVekDBRoot> database(sglLoadFile_wrl().loadFile(file.path(), 0));
    if (!database) state.SkipWithError("the world does not load");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(body.size()));
}

BENCHMARK(collect<3>)->Name("collect/triangles")->Unit(benchmark::kMillisecond);
BENCHMARK(collect<4>)->Name("collect/quads")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, shapes, bench::shapesText(kShapes, false))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, references, bench::shapesText(kShapes, true))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, lists, bench::faceSetText(kTriangles))->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
