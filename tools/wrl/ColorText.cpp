#include "tools/wrl/ColorText.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace wrl {

namespace {

struct NamedColor {
  std::string_view name;
  std::uint32_t value;  // red in the high byte of three
};

constexpr NamedColor kColors[] = {
    {"black", 0x000000},  {"silver", 0xC0C0C0}, {"gray", 0x808080},   {"white", 0xFFFFFF},
    {"maroon", 0x800000}, {"red", 0xFF0000},    {"purple", 0x800080}, {"fuchsia", 0xFF00FF},
    {"green", 0x008000},  {"lime", 0x00FF00},   {"olive", 0x808000},  {"yellow", 0xFFFF00},
    {"navy", 0x000080},   {"blue", 0x0000FF},   {"teal", 0x008080},   {"aqua", 0x00FFFF},
};

char toLower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

bool equalsInAnyCase(std::string_view text, std::string_view lower) {
  return std::ranges::equal(text, lower, {}, toLower);
}

std::array<std::uint8_t, 3> bytesOf(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value >> 16U), static_cast<std::uint8_t>(value >> 8U),
          static_cast<std::uint8_t>(value)};
}

}  // namespace

std::optional<std::array<std::uint8_t, 3>> readColor(std::string_view text) {
  for (const NamedColor& color : kColors) {
    if (equalsInAnyCase(text, color.name)) return bytesOf(color.value);
  }
  constexpr std::size_t kDigits = 6;
  if (text.size() != kDigits + 1 || text.front() != '#') return std::nullopt;
  std::uint32_t value = 0;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data() + 1, last, value, 16);
  if (error != std::errc() || end != last) return std::nullopt;
  return bytesOf(value);
}

std::string colorNames() {
  std::string names;
  for (const NamedColor& color : kColors) {
    if (!names.empty()) names += ", ";
    names += color.name;
  }
  return names;
}

}  // namespace wrl
