// Texts are plain character arrays, measured by their terminating zero.

#include "vrml/fields/OwnedText.h"

#include <algorithm>

namespace vrml {

char* copyText(std::string_view text) {
  const std::string_view kept = text.substr(0, text.find('\0'));
  char* const copy = new char[kept.size() + 1];
  std::copy(kept.begin(), kept.end(), copy);
  copy[kept.size()] = '\0';
  return copy;
}

char* copyText(const char* text) { return text ? copyText(std::string_view(text)) : nullptr; }

void freeText(const char* text) noexcept { delete[] text; }

}  // namespace vrml
