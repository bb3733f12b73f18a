// The numbers that are rare in a written world: doubles, and floats too large to be counted in millionths.

#include "export/NumberText.h"

#include <charconv>

namespace exporter {

char* printFixed(char* out, double value) noexcept {
  return std::to_chars(out, out + kMaxDoubleChars, value, std::chars_format::fixed, 6).ptr;
}

char* printUnsigned(char* out, std::uint64_t value) noexcept {
  return std::to_chars(out, out + kMaxIntegerChars, value).ptr;
}

}  // namespace exporter
