// Where does the time of a reading go? Scanner and grammar together, the post-load pass, and writing the tree back, for
// a world of many small nodes, one of references, and one of long lists.

#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>
#include <string>

#include "bench/WorldText.h"
#include "vrml/reader/SceneGraph.h"

namespace {

constexpr int kShapes = 5'000;
constexpr int kTriangles = 50'000;

void parse(benchmark::State& state, const std::string& body) {
  const bench::WorldFile file(body);
  for (auto _ : state) {
    vrml::SceneGraph scene;
    scene.load(file.path(), false);
    if (!scene.succeeded()) state.SkipWithError("the world does not load");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(body.size()));
}

void resolve(benchmark::State& state, const std::string& body) {
  const bench::WorldFile file(body);
  for (auto _ : state) {
    state.PauseTiming();
    auto scene = std::make_unique<vrml::SceneGraph>();
    scene->load(file.path(), false);
    state.ResumeTiming();
    scene->resolve();
    state.PauseTiming();
    scene.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * kShapes);
}

void write(benchmark::State& state, const std::string& body) {
  const bench::WorldFile file(body);
  vrml::SceneGraph scene;
  scene.load(file.path(), true);
  std::size_t bytes = 0;
  for (auto _ : state) {
    std::ostringstream out;
    scene.write(out);
    bytes += static_cast<std::size_t>(out.tellp());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

BENCHMARK_CAPTURE(parse, shapes, bench::shapesText(kShapes, false))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(parse, references, bench::shapesText(kShapes, true))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(parse, lists, bench::faceSetText(kTriangles))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resolve, shapes, bench::shapesText(kShapes, false))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resolve, references, bench::shapesText(kShapes, true))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(write, shapes, bench::shapesText(kShapes, false))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(write, references, bench::shapesText(kShapes, true))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(write, lists, bench::faceSetText(kTriangles))->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
