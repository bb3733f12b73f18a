// How fast are numbers printed, beside what the C library does with the same values?

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "export/NumberText.h"
#include "export/TextWriter.h"

namespace {

constexpr int kValues = 10'000;

std::vector<float> coordinates() {
  std::vector<float> values(kValues);
  for (int i = 0; i < kValues; ++i) values[static_cast<std::size_t>(i)] = static_cast<float>(40 * std::sin(i * 0.37));
  return values;
}

void countValues(benchmark::State& state) {
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * kValues);
}

void printFixed(benchmark::State& state) {
  const std::vector<float> values = coordinates();
  char text[exporter::kMaxFloatChars];
  for (auto _ : state)
    for (const float value : values) benchmark::DoNotOptimize(exporter::printFixed(text, value));
  countValues(state);
}

void printFixedByTheLibrary(benchmark::State& state) {
  const std::vector<float> values = coordinates();
  char text[exporter::kMaxFloatChars];
  for (auto _ : state)
    for (const float value : values)
      benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%f", static_cast<double>(value)));
  countValues(state);
}

void printInteger(benchmark::State& state) {
  char text[exporter::kMaxIntegerChars];
  for (auto _ : state)
    for (std::int32_t value = 0; value < kValues; ++value)
      benchmark::DoNotOptimize(exporter::printInteger(text, value * 173));
  countValues(state);
}

void printIntegerByTheLibrary(benchmark::State& state) {
  char text[exporter::kMaxIntegerChars];
  for (auto _ : state)
    for (std::int32_t value = 0; value < kValues; ++value)
      benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%d", value * 173));
  countValues(state);
}

// The whole way of a list of points, up to the stream.
void writePoints(benchmark::State& state) {
  const std::vector<float> values = coordinates();
  std::FILE* const sink = std::fopen("/dev/null", "w");
  if (!sink) return state.SkipWithError("no /dev/null");
  for (auto _ : state) {
    exporter::TextWriter writer(sink);
    for (std::size_t i = 0; i + 2 < values.size(); i += 3)
      writer.print("\t\t", values[i], " ", values[i + 1], " ", values[i + 2], ",\n");
  }
  std::fclose(sink);
  countValues(state);
}

BENCHMARK(printFixed);
BENCHMARK(printFixedByTheLibrary);
BENCHMARK(printInteger);
BENCHMARK(printIntegerByTheLibrary);
BENCHMARK(writePoints);

}  // namespace

BENCHMARK_MAIN();
