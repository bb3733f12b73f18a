// How fast is the scanner alone? Token by token over text of one kind each, and the list path that the grammar takes
// for numbers.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/WorldText.h"
#include "vrml/reader/Lexer.h"
#include "vrml/reader/Limits.h"
#include "vrml/reader/Parser.h"

namespace {

// A text as the scanner wants it, the bytes behind its end included.
class Scan {
 public:
  explicit Scan(std::string text) : m_size(text.size()), m_text(std::move(text)) {
    m_text.append(vrml::kScanPadding, '\0');
    vrml::Parser::pushParser(m_parser);
  }
  ~Scan() { vrml::Parser::popParser(); }
  Scan(const Scan&) = delete;
  Scan& operator=(const Scan&) = delete;

  template <class Function>
  void run(benchmark::State& state, Function function) {
    for (auto _ : state) {
      vrml::Lexer lexer({m_text.data(), m_size}, vrml::Rules::exact(), m_parser, vrml::kExpansionTextLimit);
      const vrml::ActiveLexer active(lexer);
      function(lexer);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(m_size));
  }

 private:
  std::size_t m_size;
  std::string m_text;
  vrml::Parser m_parser;
};

void takeAll(vrml::Lexer& lexer) {
  while (lexer.next().kind != vrml::TokenKind::end) {
  }
}

std::string repeated(std::string_view piece, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

void scanTokens(benchmark::State& state, const std::string& text) { Scan(text).run(state, takeAll); }

void scanFloatList(benchmark::State& state) {
  Scan("[" + bench::pointsText(20'000) + "]").run(state, [](vrml::Lexer& lexer) {
    static_cast<void>(lexer.next());
    float last = 0;
    lexer.scanFloats([&last](float value) { last = value; });
    benchmark::DoNotOptimize(last);
  });
}

void scanIntegerList(benchmark::State& state) {
  Scan("[" + bench::trianglesText(20'000) + "]").run(state, [](vrml::Lexer& lexer) {
    static_cast<void>(lexer.next());
    std::int32_t last = 0;
    lexer.scanIntegers([&last](std::int32_t value) { last = value; });
    benchmark::DoNotOptimize(last);
  });
}

BENCHMARK_CAPTURE(scanTokens, floats, bench::pointsText(20'000));
BENCHMARK_CAPTURE(scanTokens, integers, bench::trianglesText(20'000));
BENCHMARK_CAPTURE(scanTokens, words, repeated("Shape { appearance Appearance { material Material { } } }\n", 10'000));
BENCHMARK_CAPTURE(scanTokens, strings, repeated("\"a text of some length\" \"\"\n", 20'000));
BENCHMARK_CAPTURE(scanTokens, comments, repeated("# a line that says nothing to the reader\n", 20'000));
BENCHMARK(scanFloatList);
BENCHMARK(scanIntegerList);

}  // namespace

BENCHMARK_MAIN();
