// Every loop asks the writer for room for one element, and prints its numbers there without further checks.

#include "export/FaceSetText.h"

#include <algorithm>

namespace exporter {
namespace {

char* append(char* out, std::string_view text) { return out + text.copy(out, text.size()); }

/// Writes one list of vectors of `size` floats each.
template <unsigned size>
void writeVectorList(TextWriter& out, const char* name, const float* data, std::size_t count) {
  out.print(name, "[\n");
  for (std::size_t i = 0; i < std::max<std::size_t>(count, 1); ++i, data += size) {
    char* next = out.room(size * (kMaxFloatChars + 2));
    if (i > 0) next = append(next, ",\n");
    next = printFixed(next, data[0]);
    for (unsigned component = 1; component < size; ++component) {
      *next++ = ' ';
      next = printFixed(next, data[component]);
    }
    out.advanceTo(next);
  }
  out.put("]\n");
}

void writeTriangle(TextWriter& out, std::string_view separator, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
  char* next = append(out.room(4 * (kMaxIntegerChars + 1)), separator);
  next = printInteger(next, static_cast<std::int32_t>(a));
  *next++ = ' ';
  next = printInteger(next, static_cast<std::int32_t>(b));
  *next++ = ' ';
  next = printInteger(next, static_cast<std::int32_t>(c));
  out.advanceTo(append(next, " -1"));
}

}  // namespace

void writeVectors(TextWriter& out, const char* name, const float* data, std::size_t count) {
  writeVectorList<3>(out, name, data, count);
}

void writePairs(TextWriter& out, const char* name, const float* data, std::size_t count) {
  writeVectorList<2>(out, name, data, count);
}

void writeTriangles(TextWriter& out, const std::uint32_t* indices, std::size_t triangleCount) {
  writeTriangle(out, "", indices[0], indices[1], indices[2]);
  for (std::size_t triangle = 1; triangle < triangleCount; ++triangle) {
    const std::uint32_t* corner = indices + 3 * triangle;
    writeTriangle(out, ",\n ", corner[0], corner[1], corner[2]);
  }
}

void writeConsecutiveTriangles(TextWriter& out, std::size_t vertexCount) {
  writeTriangle(out, "", 0, 1, 2);
  for (std::size_t first = 3; first < vertexCount; first += 3) {
    const auto index = static_cast<std::uint32_t>(first);
    writeTriangle(out, ",\n ", index, index + 1, index + 2);
  }
}

void writeStrips(TextWriter& out, const std::uint32_t* indices, std::span<const std::uint32_t> lengths,
                 std::size_t indexCount) {
  std::string_view separator;
  std::size_t start = 0;
  for (const std::uint32_t length : lengths) {
    const std::size_t end = start + length;
    const std::size_t readable = std::min(end, indexCount);
    for (std::size_t j = start; j + 2 < readable; ++j) {
      const bool isEven = (j - start) % 2 == 0;
      writeTriangle(out, separator, indices[j], indices[isEven ? j + 1 : j + 2], indices[isEven ? j + 2 : j + 1]);
      separator = ",\n";
    }
    start = end;
  }
}

}  // namespace exporter
