// A file with carriage returns echoes one character a line. Standard error is not buffered, so the characters are
// gathered here. On a terminal, where the result stands behind them, they get a line of their own.

#include "tools/wrl/Echo.h"

#include <unistd.h>

#include <cstdio>
#include <string>

#include "vrml/reader/Lexer.h"

namespace wrl {

namespace {

constexpr std::size_t kBlockBytes = 64 * 1024;

std::string& gathered() {
  static std::string text;
  return text;
}

char lastCharacter = '\n';

void flushGathered() {
  if (!gathered().empty()) lastCharacter = gathered().back();
  std::fwrite(gathered().data(), 1, gathered().size(), stderr);
  gathered().clear();
}

void gather(const char* text, std::size_t size) {
  gathered().append(text, size);
  if (gathered().size() >= kBlockBytes) flushGathered();
}

}  // namespace

EchoToStandardError::EchoToStandardError(bool isDropped) {
  vrml::setEchoSink(isDropped ? [](const char*, std::size_t) {} : gather);
}

EchoToStandardError::~EchoToStandardError() {
  flushGathered();
  if (lastCharacter != '\n' && ::isatty(STDERR_FILENO) == 1) std::fputc('\n', stderr);
  lastCharacter = '\n';
  vrml::setEchoSink(nullptr);
}

}  // namespace wrl
