// How fast do images come in? A Targa image read from memory, and the resampling of one.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "image/FileTarga.h"

namespace {

constexpr unsigned kSide = 512;

std::vector<std::uint8_t> targaHeader() {
  constexpr auto low = static_cast<std::uint8_t>(kSide & 0xff);
  constexpr auto high = static_cast<std::uint8_t>(kSide >> 8);
  return {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, low, high, low, high, 24, 0};
}

std::vector<std::uint8_t> plainTarga() {
  std::vector<std::uint8_t> bytes = targaHeader();
  for (unsigned pixel = 0; pixel < kSide * kSide; ++pixel)
    for (const unsigned shift : {0U, 4U, 8U}) bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
  return bytes;
}

void readTarga(benchmark::State& state) {
  const std::vector<std::uint8_t> bytes = plainTarga();
  for (auto _ : state) {
    const image::FileTarga reader(bytes);
    if (!reader.isOk()) state.SkipWithError("the image does not load");
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * kSide * kSide);
}

void resample(benchmark::State& state) {
  const std::vector<std::uint8_t> bytes = plainTarga();
  const image::FileTarga reader(bytes);
  for (auto _ : state) benchmark::DoNotOptimize(reader.getImage(300, 200));
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * 300 * 200);
}

BENCHMARK(readTarga);
BENCHMARK(resample);

}  // namespace

BENCHMARK_MAIN();
