#pragma once

// What an operation that takes a stream writes to it.

#include <cstdio>
#include <string>

#include "export/TextWriter.h"

namespace exporter_test {

/// The text that `write(FILE*)` puts into a stream.
template <class Write>
std::string written(Write write) {
  std::FILE* file = std::tmpfile();
  if (file == nullptr) return "no temporary file";
  write(file);
  std::string text(static_cast<std::size_t>(std::ftell(file)), '\0');
  std::rewind(file);
  text.resize(std::fread(text.data(), 1, text.size(), file));
  std::fclose(file);
  return text;
}

/// The text that `write(TextWriter&)` writes.
template <class Write>
std::string printed(Write write) {
  return written([&write](std::FILE* file) {
    exporter::TextWriter out(file);
    write(out);
  });
}

}  // namespace exporter_test
