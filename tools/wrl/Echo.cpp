// A file with carriage returns echoes one character a line. Standard error is not buffered, so the characters are
// gathered here.

#include "tools/wrl/Echo.h"

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

void flushGathered() {
  std::fwrite(gathered().data(), 1, gathered().size(), stderr);
  gathered().clear();
}

void gather(const char* text, std::size_t size) {
  gathered().append(text, size);
  if (gathered().size() >= kBlockBytes) flushGathered();
}

}  // namespace

EchoToStandardError::EchoToStandardError() { vrml::setEchoSink(gather); }

EchoToStandardError::~EchoToStandardError() {
  flushGathered();
  vrml::setEchoSink(nullptr);
}

}  // namespace wrl
